#include "escritores.h"

#include <stdexcept>

namespace demo {

namespace {

// Field types, TIFF 6.0 section 2.
constexpr quint32 lngAscii = 2;
constexpr quint32 lngShort = 3;
constexpr quint32 lngLong = 4;
constexpr quint32 lngRational = 5;
constexpr quint32 lngUndefined = 7;

/// A field of an image file directory: numbers or, of the types ASCII and undefined, bytes.
struct clsCampo {
    quint32 lngEtiqueta;
    quint32 lngTipo;
    std::vector<quint32> lstNumeros;
    std::string strBytes = {};

    quint32 fCuenta() const
    {
        const std::size_t lngNumeros = lstNumeros.size() / (lngTipo == lngRational ? 2 : 1);
        return static_cast<quint32>(lngNumeros + strBytes.size() + (lngTipo == lngAscii ? 1 : 0));
    }
    QByteArray fValor(enmOrden orden) const
    {
        clsBytes valor(orden);
        for (const quint32 lngNumero : lstNumeros) {
            lngTipo == lngShort ? valor.fPoner16(lngNumero) : valor.fPoner32(lngNumero);
        }
        valor.fPonerTexto(strBytes);
        valor.fPonerCeros(lngTipo == lngAscii ? 1 : 0); // which the count includes
        return valor.fDatos();
    }
};

using clsDirectorio = std::vector<clsCampo>; // in ascending order of tags, as TIFF 6.0 demands

/// Appends a directory to the TIFF stream, whose first byte is offset zero. Values of up to four
/// bytes stand in the entry itself, longer ones behind it all, from word boundaries on (TIFF 6.0,
/// section 2).
void fEscribir(clsBytes &tiff, enmOrden orden, const clsDirectorio &directorio,
               quint32 lngSiguiente)
{
    clsBytes fuera(orden);
    const auto lngCampos = static_cast<quint32>(directorio.size());
    const quint32 lngFuera = tiff.fLargo() + 2 + 12 * lngCampos + 4;
    tiff.fPoner16(lngCampos);
    for (const clsCampo &campo : directorio) {
        const QByteArray datValor = campo.fValor(orden);
        const auto lngLargo = static_cast<quint32>(datValor.size());
        tiff.fPoner16(campo.lngEtiqueta);
        tiff.fPoner16(campo.lngTipo);
        tiff.fPoner32(campo.fCuenta());
        if (lngLargo > 4) {
            tiff.fPoner32(lngFuera + fuera.fLargo());
        }
        clsBytes &donde = lngLargo > 4 ? fuera : tiff;
        donde.fPonerBytes(datValor);
        donde.fPonerCeros(lngLargo > 4 ? lngLargo % 2 : 4 - lngLargo);
    }
    tiff.fPoner32(lngSiguiente);
    tiff.fPonerBytes(fuera.fDatos());
}

quint32 fTamano(const clsDirectorio &directorio)
{
    clsBytes bytes(enmOrden::Intel);
    fEscribir(bytes, enmOrden::Intel, directorio, 0);
    return bytes.fLargo();
}

clsDirectorio fPrincipal(const clsExif &exif, quint32 lngLugarExif)
{
    return {
        {0x010F, lngAscii, {}, exif.strMarca},
        {0x0110, lngAscii, {}, exif.strModelo},
        {0x0112, lngShort, {static_cast<quint32>(exif.intOrientacion)}},
        {0x011A, lngRational, {72, 1}},        // XResolution
        {0x011B, lngRational, {72, 1}},        // YResolution
        {0x0128, lngShort, {2}},               // ResolutionUnit: inch
        {0x0132, lngAscii, {}, exif.strFecha}, // DateTime
        {0x0213, lngShort, {1}},               // YCbCrPositioning: centred
        {0x8769, lngLong, {lngLugarExif}},     // ExifIFD
    };
}

clsDirectorio fToma(const clsExif &exif)
{
    return {
        {0x829A, lngRational, {1, exif.lngExposicionEntre}},    // ExposureTime
        {0x829D, lngRational, {exif.lngDiafragmaDecimos, 10}},  // FNumber
        {0x8827, lngShort, {exif.lngIso}},                      // PhotographicSensitivity
        {0x9000, lngUndefined, {}, "0220"},                     // ExifVersion
        {0x9003, lngAscii, {}, exif.strFecha},                  // DateTimeOriginal
        {0x9004, lngAscii, {}, exif.strFecha},                  // DateTimeDigitized
        {0x9101, lngUndefined, {}, std::string("\1\2\3\0", 4)}, // ComponentsConfiguration: YCbCr
        {0xA000, lngUndefined, {}, "0100"},                     // FlashpixVersion
        {0xA001, lngShort, {1}},                                // ColorSpace: sRGB
        {0xA002, lngLong, {static_cast<quint32>(exif.tamGuardado.width())}},
        {0xA003, lngLong, {static_cast<quint32>(exif.tamGuardado.height())}},
    };
}

clsDirectorio fMiniatura(const clsExif &exif, quint32 lngLugarJpeg)
{
    return {
        {0x0103, lngShort, {6}},           // Compression: JPEG
        {0x011A, lngRational, {72, 1}},    // XResolution
        {0x011B, lngRational, {72, 1}},    // YResolution
        {0x0128, lngShort, {2}},           // ResolutionUnit: inch
        {0x0201, lngLong, {lngLugarJpeg}}, // JPEGInterchangeFormat
        {0x0202, lngLong, {static_cast<quint32>(exif.datMiniatura.size())}},
    };
}

/// The TIFF stream: header, IFD0, Exif IFD and, with a thumbnail, IFD1 and its JPEG.
QByteArray fTiff(const clsExif &exif)
{
    const quint32 lngInicio = 8; // behind the header
    const clsDirectorio toma = fToma(exif);
    const quint32 lngLugarToma = lngInicio + fTamano(fPrincipal(exif, 0));
    const quint32 lngLugarMini = lngLugarToma + fTamano(toma);
    const bool bolMiniatura = !exif.datMiniatura.isEmpty();

    clsBytes tiff(exif.ordenBytes);
    tiff.fPonerTexto(exif.ordenBytes == enmOrden::Intel ? "II" : "MM");
    tiff.fPoner16(42);
    tiff.fPoner32(lngInicio);
    fEscribir(tiff, exif.ordenBytes, fPrincipal(exif, lngLugarToma),
              bolMiniatura ? lngLugarMini : 0);
    fEscribir(tiff, exif.ordenBytes, toma, 0);
    if (bolMiniatura) {
        const quint32 lngLugarJpeg = lngLugarMini + fTamano(fMiniatura(exif, 0));
        fEscribir(tiff, exif.ordenBytes, fMiniatura(exif, lngLugarJpeg), 0);
        tiff.fPonerBytes(exif.datMiniatura);
    }
    return tiff.fDatos();
}

} // namespace

QByteArray fConExif(const QByteArray &datJpeg, const clsExif &exif)
{
    const QByteArray datTiff = fTiff(exif);
    const qsizetype lngLargo = 2 + 6 + datTiff.size(); // the length counts its own two bytes
    if (lngLargo > 0xFFFF) {
        throw std::runtime_error("los datos Exif no caben en su segmento");
    }
    clsBytes salida(enmOrden::Motorola); // JPEG markers are in this order whatever TIFF uses
    salida.fPoner32(0xFFD8FFE1);
    salida.fPoner16(static_cast<quint32>(lngLargo));
    salida.fPonerTexto(std::string_view("Exif\0\0", 6));
    salida.fPonerBytes(datTiff);
    salida.fPonerBytes(datJpeg.mid(2));
    return salida.fDatos();
}

} // namespace demo
