#pragma once

#include "sistema/archivo.h"

#include <QImage>

#include <string>

/// The picture in a PNG file; null when there is none.
[[nodiscard]] QImage fLeerPng(const std::string &strRuta);

/// The thumbnails that all programs of a desktop share, by the freedesktop Thumbnail Managing
/// Standard 0.9: thumbnails/{normal,large,x-large,xx-large}/MD5(URI).png, and
/// thumbnails/fail/PROGRAM/MD5(URI).png for files that gave none. Safe on several threads; nothing
/// here fails loudly, a cache that cannot be read or written is none.
class clsCacheEscritorio {
public:
    /// @param strCarpeta the folder "thumbnails/" with its final "/"; empty: no cache.
    explicit clsCacheEscritorio(std::string strCarpeta);

    /// $XDG_CACHE_HOME/thumbnails/, else ~/.cache/thumbnails/; empty when neither is known.
    [[nodiscard]] static std::string fCarpetaUsual();

    /// Side in pixels of the smallest size the cache keeps that fills a box of that side: 128, 256,
    /// 512 or 1024; the side itself beyond that, which is not kept.
    [[nodiscard]] static int fLadoCache(int intLado);

    /// The thumbnail of the smallest size that fills the box, as it is kept, maybe larger than the
    /// box; null when there is none for a file of that time and size.
    /// @param bolMenores rather one that does not fill the box, the largest of them, than none.
    [[nodiscard]] QImage fLeer(const std::string &strRuta, const clsHuella &huella, int intLado,
                               bool bolMenores = false) const;
    /// Keeps a thumbnail that was made for that box of fLadoCache. Not for files of the cache.
    void fGuardar(const std::string &strRuta, const clsHuella &huella, int intLado,
                  const QImage &imagen) const;

    /// Whether this program noted that the file, with that time and size, gives no thumbnail.
    [[nodiscard]] bool fFallido(const std::string &strRuta, const clsHuella &huella) const;
    /// Notes that.
    /// @param bolPasajero the reason may go away: the note holds for a day.
    void fApuntarFallo(const std::string &strRuta, const clsHuella &huella, bool bolPasajero) const;

private:
    [[nodiscard]] bool fPropia(const std::string &strRuta) const;

    const std::string m_strCarpeta;
};
