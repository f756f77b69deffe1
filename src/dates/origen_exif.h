#pragma once

#include "dates/origen.h"

#include <memory>
#include <string_view>

/// The bytes of a photo as the EXIF readers look at them: those of the file or, of a format that
/// holds EXIF data in other ways than JPEG and TIFF do, these data as if they were a TIFF file. Of
/// the usual formats always the file: what is in them judges as it ever did, whatever that is.
class clsOrigenExif final : public clsOrigen {
public:
    /// @param archivo must outlive it.
    /// @param strRuta tells the format.
    clsOrigenExif(const clsAbierto &archivo, std::string_view strRuta);

    [[nodiscard]] std::int64_t fTamano() const override { return m_origen->fTamano(); }
    std::size_t fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes) override
    {
        return m_origen->fLeer(lngPos, chrDestino, lngBytes);
    }

private:
    clsOrigenArchivo m_archivo;
    std::unique_ptr<clsOrigen> m_dentro;
    clsOrigen *m_origen;
};

/// The EXIF data inside a file of another format than JPEG and TIFF, as a TIFF file: of PNG, WEBP,
/// HEIC and AVIF, of CR3 (its two parts as one) and of ORF and RW2 (which are TIFF under another
/// number); of RAF the JPEG file in it. Whatever the bytes claim, only those that exist are asked
/// for. Sources: PNG 3rd edition 11.3.2.4; WebP container format; ISO/IEC 14496-12 and
/// 23008-12 annex A; what is known of the raw formats of Canon, Fujifilm, Olympus and Panasonic.
/// @param origen must outlive what is returned.
/// @return nullptr: none of these, or without EXIF data.
[[nodiscard]] std::unique_ptr<clsOrigen> fExifDentro(clsOrigen &origen);
