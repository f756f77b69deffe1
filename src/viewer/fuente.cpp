#include "viewer/fuente.h"

#include "shared/hilos.h"
#include "sistema/archivo.h"
#include "sistema/memoria.h"
#include "viewer/colores.h"
#include "viewer/decodificador.h"
#include "viewer/imagenes.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace {

/// Size the JPEG decoder can deliver by itself, without a second scaling, for that many eighths.
QSize fTamEscalado(QSize tam, int intOctavos)
{
    const auto fLado = [intOctavos](int intLado) {
        return static_cast<int>(std::max<qint64>(1, qint64{intLado} * intOctavos / 8));
    };
    return {fLado(tam.width()), fLado(tam.height())};
}

/// For a picture that is seen in parts, of which the middle comes first: that has the screen's
/// colours at once.
std::unique_ptr<clsTinte> fTinteParaZoom(QImage &imagen)
{
    constexpr QSize pantalla(2048, 2048); // large ones, however the picture is turned
    auto tinte = clsTinte::fCrear(imagen);
    if (tinte) {
        QRect medio({}, pantalla);
        medio.moveCenter(imagen.rect().center());
        tinte->fTenir(imagen, medio);
    }
    return tinte;
}

/// Gives the memory of pixels back that nobody else has.
/// @return whether there were some.
bool fDevolver(QImage &imagen)
{
    const bool bolSuyos = imagen.isDetached();
    if (bolSuyos) {
        fDesocupar(std::as_writable_bytes(
            std::span(imagen.bits(), static_cast<std::size_t>(imagen.sizeInBytes()))));
    }
    return bolSuyos;
}

/// Ends a picture that nobody has any more; on any thread.
void fSoltar(const clsFuente *fuente)
{
    constexpr qint64 lngGrande = qint64{16} << 20;
    std::shared_ptr<const clsFuente> suya(fuente);
    if (suya->imagen.sizeInBytes() > lngGrande) {
        // Threads may outlive the end of main().
        static auto *const hilos = new clsHilos({.intHilos = 1, .intMaximo = 1});
        while (hilos->fAtender()) {
        }
        hilos->fPedir([suya = std::move(suya)] { return fDevolver(suya->imagen); }, [](bool) {});
    }
}

} // namespace

int fOctavos(QSize tam, const clsPedido &pedido)
{
    const double dblAncho = tam.width();
    const double dblAlto = tam.height();
    const double dblEscala = pedido.intZoom != 0 ? pedido.intZoom / 100.0
                                                 : std::min(pedido.recuadro.width() / dblAncho,
                                                            pedido.recuadro.height() / dblAlto);
    // A hair below a whole eighth is that eighth.
    int intOctavos = std::clamp(static_cast<int>(std::ceil(dblEscala * 8 - 0.001)), 1, 8);
    const auto fBytes = [&](int int8) { return dblAncho * dblAlto * 4 * int8 * int8 / 64; };
    if (pedido.bolVecina && fBytes(intOctavos) > static_cast<double>(pedido.lngMaximo)) {
        return 0;
    }
    while (intOctavos > 0 && fBytes(intOctavos) > static_cast<double>(pedido.lngMaximo)) {
        --intOctavos;
    }
    return intOctavos;
}

std::string fClave(const clsPedido &pedido, const clsHuella &huella)
{
    std::string strClave = pedido.strRuta;
    for (const std::int64_t lngNumero :
         {huella.lngBytes, huella.lngSegundos, std::int64_t{huella.lngNanosegundos},
          std::int64_t{pedido.recuadro.width()}, std::int64_t{pedido.recuadro.height()},
          std::int64_t{pedido.intZoom}}) {
        strClave += '\0' + std::to_string(lngNumero);
    }
    return strClave;
}

clsFuente fDecodificar(const clsPedido &pedido, const std::atomic<bool> &bolAnulado)
{
    const auto abierto = fAbrirRegular(pedido.strRuta);
    if (!abierto) {
        return {};
    }
    if (fAjena(*abierto, pedido.strRuta)) {
        return fDecodificarAjena(*abierto, pedido, bolAnulado);
    }
    clsDecodificador decodificador(*abierto, bolAnulado);
    const QSize tam = decodificador.fTam();
    if (tam.isEmpty()) {
        return {};
    }
    const bool bolGirada = decodificador.fGirada();
    clsPedido pedidoGirado = pedido;
    pedidoGirado.lngMaximo = std::min(pedido.lngMaximo, decodificador.fSitio());
    if (bolGirada) {
        pedidoGirado.recuadro.transpose();
    }
    const int intOctavos = fOctavos(tam, pedidoGirado);
    if (intOctavos == 0) {
        return {};
    }
    QImage imagen = decodificador.fLeer(intOctavos < 8 ? fTamEscalado(tam, intOctavos) : tam);
    if (imagen.isNull()) {
        return {};
    }
    auto tinte = pedido.intZoom != 0 ? fTinteParaZoom(imagen) : nullptr;
    return {fParaPantalla(std::move(imagen)), bolGirada ? tam.transposed() : tam, std::move(tinte)};
}

std::shared_ptr<const clsFuente> fCompartida(clsFuente fuente)
{
    return {new clsFuente(std::move(fuente)), fSoltar};
}

clsFuente fNoImagen()
{
    constexpr int intAncho = 640;
    constexpr int intAlto = 480;
    constexpr int intFinura = 3; // drawn finer than its size, since fit enlarges it
    const QColor colTrazo(0xaa, 0xaa, 0xaa);
    QImage imagen(intAncho * intFinura, intAlto * intFinura, QImage::Format_RGB32);
    imagen.fill(QColor(0x3a, 0x3a, 0x3a));
    QPainter pintor(&imagen);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.scale(intFinura, intFinura);
    pintor.setPen(QPen(colTrazo, 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    // A picture frame with sun and hills, struck through.
    pintor.drawRoundedRect(QRectF(230, 175, 180, 130), 10, 10);
    pintor.drawEllipse(QPointF(285, 215), 13, 13);
    QPainterPath colinas(QPointF(240, 290));
    colinas.lineTo(295, 245);
    colinas.lineTo(325, 270);
    colinas.lineTo(360, 230);
    colinas.lineTo(402, 285);
    pintor.drawPath(colinas);
    pintor.setPen(QPen(imagen.pixelColor(0, 0), 18, Qt::SolidLine, Qt::RoundCap));
    pintor.drawLine(QPointF(235, 320), QPointF(405, 160));
    pintor.setPen(QPen(colTrazo, 6, Qt::SolidLine, Qt::RoundCap));
    pintor.drawLine(QPointF(235, 320), QPointF(405, 160));
    pintor.end();
    return {
        imagen, {intAncho, intAlto}
    };
}
