#include "viewer/imagenes.h"

#include "shared/medios.h"
#include "viewer/hijos.h"

#include <algorithm>
#include <array>
#include <thread>
#include <utility>

namespace {

/// Beyond that the disk does not answer, or the processors have other work: the child itself ends
/// when it has taken three seconds of theirs.
constexpr std::chrono::seconds plazoImagen(20);

/// The children for pictures. Each may take two gigabytes, hence few.
clsHijos &fHijosImagen()
{
    // Threads may outlive the end of main(); the children end when their channels close.
    static auto *const hijos =
        new clsHijos(fProgramaHijo(fSitiosHijo("miravel-imagen")), plazoImagen,
                     std::clamp(std::thread::hardware_concurrency(), 1U, 4U));
    return *hijos;
}

clsMarcoHijo fMarco(const clsPedido &pedido)
{
    const auto fLado = [](int intLado) { return static_cast<std::uint32_t>(std::max(intLado, 1)); };
    return {.lngAncho = fLado(pedido.recuadro.width()),
            .lngAlto = fLado(pedido.recuadro.height()),
            .lngPixeles = static_cast<std::uint32_t>(
                std::clamp<qint64>(pedido.lngMaximo / 4, 1, lngPixelesMaximos)),
            .lngZoom = static_cast<std::uint32_t>(std::clamp(pedido.intZoom, 0, 100)),
            .lngEntera = pedido.bolVecina ? 1U : 0U};
}

} // namespace

bool fAjena(const clsAbierto &foto, const std::string &strRuta)
{
    std::array<unsigned char, 2> lstInicio{};
    const auto lngLeidos = fLeerEn(foto.descriptor, 0, lstInicio.data(), lstInicio.size());
    const bool bolJpeg = lstInicio[0] == 0xFF && lstInicio[1] == 0xD8;
    return lngLeidos.value_or(0) == lstInicio.size() && (fEsCruda(strRuta) || !bolJpeg);
}

clsFuente fDecodificarAjena(const clsAbierto &foto, const clsPedido &pedido,
                            const std::atomic<bool> &bolAnulado, bool *bolPasajero)
{
    const clsHijos::clsTurno hijo = fHijosImagen().fTomar(bolAnulado);
    if (hijo == nullptr) {
        return {};
    }
    clsCuadroHijo cuadro = hijo->fPedirImagen(
        foto, fEsCruda(pedido.strRuta) ? PeticionHijo::Cruda : PeticionHijo::Imagen, fMarco(pedido),
        bolAnulado);
    if (bolPasajero != nullptr) {
        *bolPasajero = fPasajero(cuadro.fin);
    }
    if (cuadro.fin != clsCuadroHijo::Fin::Imagen) {
        return {};
    }
    // The pixels stay where they are, for as long as a picture has them.
    auto *const lstPuntos = new std::vector<std::uint32_t>(std::move(cuadro.lstPuntos));
    clsFuente fuente;
    fuente.imagen = QImage(
        reinterpret_cast<uchar *>(lstPuntos->data()), cuadro.intAncho, cuadro.intAlto,
        QImage::Format_RGB32,
        [](void *suyos) { delete static_cast<std::vector<std::uint32_t> *>(suyos); }, lstPuntos);
    fuente.natural = {static_cast<int>(cuadro.natural.lngAncho),
                      static_cast<int>(cuadro.natural.lngAlto)};
    return fuente;
}
