#include "exif_escritor.h"

#include "directorio_tiff.h"

#include <stdexcept>

namespace demo {

namespace {

void fResolucion(clsDirectorio &directorio)
{
    directorio.fRacional(0x011A, 72, 1); // XResolution
    directorio.fRacional(0x011B, 72, 1); // YResolution
    directorio.fCorto(0x0128, 2);        // ResolutionUnit: inch
}

clsDirectorio fPrincipal(const clsExif &exif, quint32 lngLugarExif)
{
    clsDirectorio directorio(exif.ordenBytes);
    directorio.fTexto(0x010F, exif.strMarca);
    directorio.fTexto(0x0110, exif.strModelo);
    directorio.fCorto(0x0112, static_cast<quint32>(exif.intOrientacion));
    fResolucion(directorio);
    directorio.fTexto(0x0132, exif.strFecha); // DateTime
    directorio.fCorto(0x0213, 1);             // YCbCrPositioning: centred
    directorio.fLargo(0x8769, lngLugarExif);  // ExifIFD
    return directorio;
}

clsDirectorio fToma(const clsExif &exif)
{
    clsDirectorio directorio(exif.ordenBytes);
    directorio.fRacional(0x829A, 1, exif.lngExposicionEntre);   // ExposureTime
    directorio.fRacional(0x829D, exif.lngDiafragmaDecimos, 10); // FNumber
    directorio.fCorto(0x8827, exif.lngIso);                     // PhotographicSensitivity
    directorio.fBruto(0x9000, "0220");                          // ExifVersion
    directorio.fTexto(0x9003, exif.strFecha);                   // DateTimeOriginal
    directorio.fTexto(0x9004, exif.strFecha);                   // DateTimeDigitized
    directorio.fBruto(0x9101, std::string_view("\1\2\3\0", 4)); // ComponentsConfiguration: YCbCr
    directorio.fBruto(0xA000, "0100");                          // FlashpixVersion
    directorio.fCorto(0xA001, 1);                               // ColorSpace: sRGB
    directorio.fLargo(0xA002, static_cast<quint32>(exif.tamGuardado.width()));
    directorio.fLargo(0xA003, static_cast<quint32>(exif.tamGuardado.height()));
    return directorio;
}

clsDirectorio fMiniatura(const clsExif &exif, quint32 lngLugarJpeg)
{
    clsDirectorio directorio(exif.ordenBytes);
    directorio.fCorto(0x0103, 6); // Compression: JPEG
    fResolucion(directorio);
    directorio.fLargo(0x0201, lngLugarJpeg); // JPEGInterchangeFormat
    directorio.fLargo(0x0202, static_cast<quint32>(exif.datMiniatura.size()));
    return directorio;
}

/// The TIFF stream: header, IFD0, Exif IFD and, with a thumbnail, IFD1 and its JPEG.
QByteArray fTiff(const clsExif &exif)
{
    const quint32 lngInicio = 8; // behind the header
    const clsDirectorio toma = fToma(exif);
    const quint32 lngLugarToma = lngInicio + fPrincipal(exif, 0).fTamano();
    const quint32 lngLugarMini = lngLugarToma + toma.fTamano();
    const bool bolMiniatura = !exif.datMiniatura.isEmpty();

    clsBytes tiff(exif.ordenBytes);
    tiff.fPonerTexto(exif.ordenBytes == enmOrden::Intel ? "II" : "MM");
    tiff.fPoner16(42);
    tiff.fPoner32(lngInicio);
    fPrincipal(exif, lngLugarToma).fEscribir(tiff, bolMiniatura ? lngLugarMini : 0);
    toma.fEscribir(tiff, 0);
    if (bolMiniatura) {
        const quint32 lngLugarJpeg = lngLugarMini + fMiniatura(exif, 0).fTamano();
        fMiniatura(exif, lngLugarJpeg).fEscribir(tiff, 0);
        tiff.fPonerBytes(exif.datMiniatura);
    }
    return tiff.fDatos();
}

} // namespace

QByteArray fConExif(const QByteArray &datJpeg, const clsExif &exif)
{
    if (!datJpeg.startsWith("\xFF\xD8")) {
        throw std::runtime_error("la imagen codificada no es un JPEG");
    }
    const QByteArray datTiff = fTiff(exif);
    const qsizetype lngLargo = 2 + 6 + datTiff.size(); // the length counts its own two bytes
    if (lngLargo > 0xFFFF) {
        throw std::runtime_error("los datos Exif no caben en su segmento");
    }
    clsBytes salida(enmOrden::Motorola); // JPEG markers are in this order whatever TIFF uses
    salida.fPoner16(0xFFD8);
    salida.fPoner16(0xFFE1);
    salida.fPoner16(static_cast<quint32>(lngLargo));
    salida.fPonerTexto(std::string_view("Exif\0\0", 6));
    salida.fPonerBytes(datTiff);
    salida.fPonerBytes(datJpeg.mid(2));
    return salida.fDatos();
}

} // namespace demo
