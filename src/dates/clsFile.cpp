#include "dates/clsFile.h"

#include "dates/origen_exif.h"
#include "shared/rutas.h"
#include "sistema/archivo.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace {

constexpr std::int64_t lngMinutosHolgura = 60;

/// Whole units of a date since the zero date, rounded towards the past.
std::int64_t fUnidades(clsFecha fecha, std::int64_t lngUnidad)
{
    const std::int64_t lngResto = fecha.lngSegundos % lngUnidad;
    return fecha.lngSegundos / lngUnidad - (lngResto < 0 ? 1 : 0);
}

clsFecha fFechaDe(const clsHuella &huella) { return fFechaLocal(huella.lngSegundos); }

} // namespace

bool fMismaHora(clsFecha datFile, clsFecha datOtra)
{
    return datOtra.fHay() &&
           std::abs(fUnidades(datFile, 60) - fUnidades(datOtra, 60)) <= lngMinutosHolgura;
}

bool fMismoDia(clsFecha datFile, clsFecha datOtra)
{
    return datOtra.fHay() && fUnidades(datFile, 86400) == fUnidades(datOtra, 86400);
}

bool fCorrecta(clsFecha datFile, const clsFechasExif &exif, const clsFechasNombre &nombre)
{
    return fMismaHora(datFile, exif.fMejor()) || fMismoDia(datFile, nombre.datAnoPrimero) ||
           fMismoDia(datFile, nombre.datDiaPrimero);
}

clsFechasNombre fFechasDeNombre(std::string_view strNombre)
{
    std::string strCifras;
    std::copy_if(strNombre.begin(), strNombre.end(), std::back_inserter(strCifras),
                 [](char chr) { return chr >= '0' && chr <= '9'; });
    const std::string_view strOcho = std::string_view(strCifras).substr(0, 8);
    return {fLeerFecha(strOcho, "yyyyMMdd").value_or(clsFecha{}),
            fLeerFecha(strOcho, "ddMMyyyy").value_or(clsFecha{})};
}

void clsFile::fReset() { *this = clsFile(); }

void clsFile::fCargar(const std::string &strRuta)
{
    clsFile file; // apart, since the path may be the one this record holds
    clsHuella huella;
    if (const auto archivo = fAbrirRegular(strRuta)) {
        huella = archivo->huella;
        clsOrigenExif origen(*archivo, strRuta);
        file.m_exif = fLeerFechasExif(origen);
    } else if (const auto cerrado = fHuella(strRuta)) {
        huella = *cerrado; // It exists and may not be read: no EXIF dates.
    } else {
        fReset();
        return;
    }
    file.m_strFilePath = strRuta;
    file.m_datFile = fFechaDe(huella);
    const clsFechasNombre nombre = fFechasDeNombre(fNombreDe(strRuta));
    file.m_datNombre1 = nombre.datAnoPrimero;
    file.m_datNombre2 = nombre.datDiaPrimero;
    file.m_bolFechaCorrecta = fCorrecta(file.m_datFile, file.m_exif, nombre);
    file.m_bolDatos = true;
    *this = std::move(file);
}

std::string clsFile::strFileName() const { return std::string(fNombreDe(m_strFilePath)); }

bool fFechaCorrecta(const std::string &strRuta)
{
    clsFile fichero;
    fichero.fCargar(strRuta);
    return fichero.bolFechaCorrecta();
}
