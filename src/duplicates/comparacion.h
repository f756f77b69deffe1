#pragma once

#include "shared/hilos.h"
#include "sistema/archivo.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// How many bytes a file begins with are looked at before it is compared as a whole.
inline constexpr std::size_t lngComienzo = std::size_t{64} << 10;

/// A number for the first bytes of a file, all of them if there are fewer. Files whose numbers
/// differ are different; those whose numbers are alike need not be.
[[nodiscard]] clsResultado<std::size_t> fNumeroComienzo(const std::string &strRuta);

/// Compares files of one size byte by byte and tells which of them are alike. As a rule each is
/// read once: one file and some others go side by side, until they differ. It goes in turns, so
/// that whoever orders them learns how far it has come.
class clsComparacion {
public:
    using clsClase = std::vector<std::size_t>; ///< indexes of files that are alike

    /// @param lngBytes the size of each; one that has another by now counts as unreadable.
    clsComparacion(std::vector<std::string> lstRutas, std::int64_t lngBytes);

    /// Reads on, about 64 MB.
    /// @return whether it is done.
    bool fTurno(const clsAnulado &anulado);

    [[nodiscard]] std::int64_t fLeidos() const { return m_lngLeidos; } ///< bytes
    /// Those with two files at least.
    [[nodiscard]] const std::vector<clsClase> &fClases() const { return m_lstClases; }
    [[nodiscard]] int fIlegibles() const { return m_intIlegibles; }

private:
    struct clsAbierta {
        std::size_t lngCual;
        clsDescriptor descriptor;
    };
    [[nodiscard]] bool fEmpezarRonda();
    [[nodiscard]] bool fAbrir(std::size_t lngCual);
    void fAbandonarModelo();
    void fCerrarClase();
    void fLeerTrozo();
    void fCompararTrozo(std::size_t lngTrozo);
    [[nodiscard]] bool fLlenar(const clsDescriptor &abierto, std::vector<char> &lstBytes,
                               std::size_t lngTrozo);

    const std::vector<std::string> m_lstRutas;
    const std::int64_t m_lngBytes;
    std::vector<std::size_t> m_lstPendientes; ///< not compared with the model yet
    std::vector<std::size_t> m_lstDistintas;  ///< that differ from it
    clsClase m_lstClase;                      ///< the model, and what is like it
    std::vector<clsAbierta> m_lstRonda;       ///< the model, and what goes beside it
    std::int64_t m_lngPos = 0;                ///< how far the round has come
    std::vector<clsClase> m_lstClases;
    std::int64_t m_lngLeidos = 0;
    int m_intIlegibles = 0;
    std::vector<char> m_lstModelo; ///< what was read of the model
    std::vector<char> m_lstOtra;   ///< and of another one
};
