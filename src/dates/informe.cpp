#include "dates/informe.h"

#include "dates/deshacer.h"
#include "shared/errores.h"
#include "shared/numeros.h"
#include "shared/texto.h"

#include <algorithm>
#include <cerrno>

namespace {

/// Files below a title.
class clsRelacion {
public:
    explicit clsRelacion(std::string strTitulo) : m_strTexto(std::move(strTitulo)) {}
    /// @param strMotivo what is said of the file, if anything.
    void fAnadir(std::string_view strRuta, const std::string &strMotivo = {})
    {
        constexpr int intMaximo = 20;
        if (++m_intCuantos <= intMaximo) {
            m_strTexto += "\r\n" + fTextoPantalla(strRuta);
            m_strTexto += strMotivo.empty() ? "" : " (" + strMotivo + ")";
        }
        m_intDeMas = std::max(m_intCuantos - intMaximo, 0);
    }
    /// Empty when no file was added.
    [[nodiscard]] std::string fTexto() const
    {
        return m_intCuantos == 0 ? std::string()
               : m_intDeMas == 0 ? m_strTexto
                                 : m_strTexto + "\r\n... y " + std::to_string(m_intDeMas) + " más.";
    }

private:
    std::string m_strTexto;
    int m_intCuantos = 0;
    int m_intDeMas = 0;
};

std::string fMotivoSinFecha(clsError error)
{
    return error == EXDEV                          ? "El enlace lleva fuera de la carpeta"
           : error == ERANGE || error == EOVERFLOW ? "El disco no admite esta fecha"
                                                   : fTextoError(error);
}

std::string fMotivo(const clsCorregido &fichero)
{
    return fichero.errorNombre == errorCambiado ? "Ha cambiado desde entonces"
           : fichero.errorNombre                ? fTextoError(fichero.errorNombre)
                                                : fMotivoSinFecha(fichero.errorFecha);
}

std::string fCuenta(std::int64_t lngCuantos, std::string_view strQue)
{
    return fConGrupos(lngCuantos, fSignosLocales()) + " " + std::string(strQue) +
           (lngCuantos == 1 ? "" : "s");
}

} // namespace

std::string fAvisoSinFecha(const std::vector<clsCorregido> &lstFicheros)
{
    clsRelacion relacion("No se ha podido poner la fecha a:");
    for (const clsCorregido &fichero : lstFicheros) {
        if (fichero.errorFecha) {
            relacion.fAnadir(fichero.strFilePathNew, fMotivoSinFecha(fichero.errorFecha));
        }
    }
    return relacion.fTexto();
}

std::string fMotivoSinCatalogo(const clsFinCorreccion &fin,
                               const std::vector<clsCorregido> &lstFicheros)
{
    if (fin.correccion == Correccion::Imposible) {
        return fTextoError(fin.error) + "\r\nNo se ha cambiado ningún fichero.";
    }
    if (fin.correccion != Correccion::SinCatalogo) {
        return {};
    }
    clsRelacion relacion("\r\nYa tienen su nombre nuevo:");
    for (const clsCorregido &fichero : lstFicheros) {
        if (fichero.bolTratado && !fichero.errorNombre &&
            fichero.strFilePathNew != fichero.strFilePath) {
            relacion.fAnadir(fichero.strFilePathNew);
        }
    }
    return fTextoError(fin.error) + relacion.fTexto();
}

std::string fInforme(const std::vector<clsCorregido> &lstFicheros, std::string_view strHecho)
{
    std::int64_t lngBien = 0;
    std::int64_t lngMal = 0;
    clsRelacion relacion(":");
    for (const clsCorregido &fichero : lstFicheros) {
        if (fichero.fBien()) {
            ++lngBien;
        } else if (fichero.bolTratado) {
            ++lngMal;
            relacion.fAnadir(fichero.strFilePathNew, fMotivo(fichero));
        }
    }
    const auto lngQuedan = static_cast<std::int64_t>(lstFicheros.size()) - lngBien - lngMal;
    const std::string strMal =
        lngMal == 0 ? "." : ", " + fConGrupos(lngMal, fSignosLocales()) + " no" + relacion.fTexto();
    const std::string strQuedan =
        lngQuedan == 0 ? "" : "\r\nSin empezar: " + fConGrupos(lngQuedan, fSignosLocales()) + ".";
    return fCuenta(lngBien, strHecho) + strMal + strQuedan;
}
