#include "dates/origen_exif.h"

#include "dates/cabecera.h"
#include "dates/exif_iso.h"
#include "dates/trozos.h"
#include "shared/medios.h"

#include <optional>
#include <string>

namespace {

constexpr std::string_view strFirmaPng("\x89PNG\r\n\x1A\n", 8);
constexpr std::string_view strFirmaRaf("FUJIFILMCCD-RAW ", 16);
constexpr std::string_view strExifDelante("Exif\0\0", 6);

/// The content of a part, without what some writers put before EXIF data.
std::unique_ptr<clsOrigen> fDeTrozo(clsOrigen &origen, clsLector &lector,
                                    const std::optional<clsTrozo> &trozo)
{
    if (!trozo || trozo->lngContenido > lector.fTamano()) {
        return nullptr;
    }
    const bool bolDelante =
        lector.fMirar(trozo->lngContenido, strExifDelante.size()) == strExifDelante;
    const std::int64_t lngSalto = bolDelante ? static_cast<std::int64_t>(strExifDelante.size()) : 0;
    return std::make_unique<clsOrigenTramo>(origen, trozo->lngContenido + lngSalto,
                                            trozo->lngBytes - lngSalto);
}

/// Raw formats that are TIFF under another number.
std::string_view fCabezaCorriente(std::string_view strCabeza)
{
    const std::string_view strNumero = strCabeza.substr(0, 4);
    if (strNumero == "IIRO" || strNumero == "IIRS" || strNumero == std::string_view("IIU\0", 4)) {
        return {"II*\0", 4};
    }
    return strNumero == "MMOR" ? std::string_view("MM\0*", 4) : std::string_view();
}

} // namespace

std::unique_ptr<clsOrigen> fExifDentro(clsOrigen &origen)
{
    clsLector lector(origen);
    const std::int64_t lngFin = lector.fTamano();
    const std::string strCabeza(lector.fMirar(0, 16));
    const std::string_view strInicio = strCabeza;
    if (const std::string_view strCorriente = fCabezaCorriente(strInicio); !strCorriente.empty()) {
        return std::make_unique<clsOrigenTramo>(origen, 0, lngFin, strCorriente);
    }
    if (strInicio.starts_with(strFirmaPng)) {
        return fDeTrozo(origen, lector, fBuscarTrozo(lector, formaPng, {8, lngFin}, "eXIf"));
    }
    if (strInicio.size() < 12) {
        return nullptr;
    }
    if (strInicio.starts_with("RIFF") && strInicio.substr(8, 4) == "WEBP") {
        return fDeTrozo(origen, lector, fBuscarTrozo(lector, formaRiff, {12, lngFin}, "EXIF"));
    }
    if (strInicio == strFirmaRaf) {
        constexpr std::int64_t lngLugarJpeg = 84;
        const std::string strLugar = lector.fCopiar(lngLugarJpeg, 8);
        const std::uint32_t lngJpeg = fLargo(strLugar, Orden::MM);
        return lngJpeg < lngFin && strLugar.size() == 8
                   ? std::make_unique<clsOrigenTramo>(
                         origen, lngJpeg, fLargo(std::string_view(strLugar).substr(4), Orden::MM))
                   : nullptr;
    }
    if (strInicio.substr(4, 4) == "ftyp") {
        return strInicio.substr(8, 4) == "crx " ? fExifDeCr3(lector) : fExifDeHeif(origen, lector);
    }
    return nullptr;
}

clsOrigenExif::clsOrigenExif(const clsAbierto &archivo, std::string_view strRuta)
    : m_archivo(archivo), m_dentro(fEsOtroFormato(strRuta) ? fExifDentro(m_archivo) : nullptr),
      m_origen(m_dentro ? m_dentro.get() : &m_archivo)
{
}
