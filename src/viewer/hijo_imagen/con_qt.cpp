#include "viewer/hijo_imagen/decodificada.h"

#include "dates/ifd.h"
#include "dates/origen_exif.h"
#include "dates/valor.h"
#include "viewer/enderezar.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QImageReader>

#include <algorithm>

namespace hijo {

namespace {

using namespace std::string_view_literals;

/// Formats by what their files begin with.
struct clsFormatoQt {
    std::string_view strInicio;
    const char *strFormato;
};
constexpr clsFormatoQt lstFormatosQt[] = {
    {"\x89PNG"sv,  "png" },
    {"RIFF"sv,     "webp"},
    {"II*\0"sv,    "tiff"},
    {"MM\0*"sv,    "tiff"},
    {"II+\0"sv,    "tiff"},
    {"MM\0+"sv,    "tiff"},
    {"GIF8"sv,     "gif" },
    {"BM"sv,       "bmp" },
    {"\xFF\xD8"sv, "jpeg"},
    {"\0\0\1\0"sv, "ico" },
    {"P4"sv,       "pbm" },
    {"P5"sv,       "pgm" },
    {"P6"sv,       "ppm" },
};

/// A reader for bytes in memory that looks for no other format.
class clsLectorQt {
public:
    clsLectorQt(std::string_view strBytes, const char *strFormato)
        : m_bytes(
              QByteArray::fromRawData(strBytes.data(), static_cast<qsizetype>(strBytes.size()))),
          m_bufer(&m_bytes)
    {
        m_bufer.open(QIODevice::ReadOnly);
        lector.setDecideFormatFromContent(false);
        lector.setAutoDetectImageFormat(false);
        lector.setFormat(strFormato);
        lector.setDevice(&m_bufer);
    }
    QImageReader lector;

private:
    QByteArray m_bytes;
    QBuffer m_bufer;
};

/// The orientation that EXIF data in a file ask for, 1 to 8.
int fOrientacion(std::string_view strBytes)
{
    constexpr std::uint32_t lngEtiqueta = 0x0112;
    clsOrigenMemoria memoria(strBytes);
    const auto dentro = fExifDentro(memoria);
    if (!dentro) {
        return 1;
    }
    clsLector lector(*dentro);
    clsMarcas marcas;
    Orden orden = Orden::II;
    if (!fLeerCabecera(lector, Busqueda::SoloApp1, marcas, orden).empty()) {
        return 1;
    }
    std::uint32_t lngOrientacion = 1;
    const clsDatosTiff tiff{lector, marcas.lngInicioTiff, orden};
    fRecorrerIfd(tiff, static_cast<std::uint32_t>(marcas.lngIfd0),
                 [&](const clsEntradaIfd &entrada) {
                     if (entrada.lngCodigo == lngEtiqueta) {
                         lngOrientacion = fPrimerNumero(tiff, entrada).value_or(1);
                     }
                     return entrada.lngCodigo != lngEtiqueta;
                 });
    return lngOrientacion >= 1 && lngOrientacion <= 8 ? static_cast<int>(lngOrientacion) : 1;
}

std::optional<clsDecodificada> fLeer(QImageReader &lector, int intOrientacion,
                                     const clsMarcoHijo &marco)
{
    const QSize suyo = lector.size();
    const int intBits = QImage::toPixelFormat(lector.imageFormat()).bitsPerPixel();
    const bool bolPropio =
        lector.transformation() != QImageIOHandler::TransformationNone && lector.autoTransform();
    const bool bolGirada =
        bolPropio ? lector.transformation().testFlag(QImageIOHandler::TransformationRotate90)
                  : intOrientacion >= 5;
    const QSize natural = bolGirada ? suyo.transposed() : suyo;
    const QSize tam = fMedida(natural, marco);
    const std::int64_t lngBytes =
        std::int64_t{suyo.width()} * suyo.height() * std::max(4, (intBits + 7) / 8);
    if (tam.isEmpty() || lngBytes > lngMaximoDecodificada) {
        return {};
    }
    if (tam != natural) {
        lector.setScaledSize(bolGirada ? tam.transposed() : tam);
    }
    const QImage imagen = lector.read();
    if (imagen.isNull()) {
        return {};
    }
    return clsDecodificada{bolPropio ? imagen : fEnderezar(imagen, intOrientacion), natural};
}

} // namespace

void fPrepararQt()
{
    // Qt converts large pictures on threads of its own, whose event loops want what is forbidden
    // later; behind the end of an application it has none. Without GLib nothing stays open by that.
    qputenv("QT_NO_GLIB", "1");
    int intArgumentos = 0;
    static_cast<void>(QCoreApplication(intArgumentos, nullptr));
    QImageReader::setAllocationLimit(static_cast<int>(lngMaximoDecodificada >> 20));
    for (const clsFormatoQt &formato : lstFormatosQt) {
        // Asks the plug-in, which is loaded by that.
        static_cast<void>(clsLectorQt(formato.strInicio, formato.strFormato).lector.canRead());
    }
}

std::optional<clsDecodificada> fDecodificarQt(std::string_view strBytes, const clsMarcoHijo &marco)
{
    const auto formato =
        std::find_if(std::begin(lstFormatosQt), std::end(lstFormatosQt),
                     [&](const clsFormatoQt &uno) { return strBytes.starts_with(uno.strInicio); });
    if (formato == std::end(lstFormatosQt)) {
        return {};
    }
    clsLectorQt bytes(strBytes, formato->strFormato);
    bytes.lector.setAutoTransform(true);
    return fLeer(bytes.lector, fOrientacion(strBytes), marco);
}

std::optional<clsDecodificada> fDecodificarJpeg(std::string_view strBytes, int intOrientacion,
                                                const clsMarcoHijo &marco)
{
    clsLectorQt bytes(strBytes, "jpeg");
    return fLeer(bytes.lector, intOrientacion, marco);
}

} // namespace hijo
