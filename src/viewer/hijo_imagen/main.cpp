// miravel-imagen: decodes pictures of every format but JPEG for Miravel, and the previews in raw
// photos.

#include "sistema/mapa.h"
#include "viewer/colores.h"
#include "viewer/hijo/servicio.h"
#include "viewer/hijo_imagen/decodificada.h"

#include <QPainter>

#include <utility>

namespace {

std::optional<hijo::clsDecodificada> fDecodificar(const clsPeticionHijo &peticion,
                                                  std::string_view strBytes)
{
    const auto &marco = peticion.marco;
    if (peticion.cual == PeticionHijo::Cruda) {
        return hijo::fDecodificarCruda(strBytes, marco);
    }
    const bool bolCajas = strBytes.size() > 8 && strBytes.substr(4, 4) == "ftyp";
    return bolCajas ? hijo::fDecodificarHeif(strBytes, marco)
                    : hijo::fDecodificarQt(strBytes, marco);
}

/// In the size that is asked for, in the screen's colours, on a neutral ground.
QImage fAcabada(QImage imagen, QSize tam)
{
    if (imagen.depth() > 32) { // more bits than the screen has
        imagen = std::move(imagen).convertToFormat(imagen.hasAlphaChannel() ? QImage::Format_ARGB32
                                                                            : QImage::Format_RGB32);
    }
    if (imagen.size() != tam) {
        imagen = imagen.scaled(tam, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    imagen = fParaPantalla(std::move(imagen));
    if (!imagen.hasAlphaChannel()) {
        return imagen;
    }
    QImage fondo(imagen.size(), QImage::Format_RGB32);
    fondo.fill(QColor(0x2b, 0x2b, 0x2b)); // that of the viewing panel
    QPainter(&fondo).drawImage(0, 0, imagen);
    return fondo;
}

hijo::clsFotograma fHacer(const clsPeticionHijo &peticion, const clsAbierto &archivo,
                          const std::function<bool()> & /*fAnulado*/)
{
    hijo::clsFotograma fotograma;
    const clsMapa mapa(archivo);
    auto decodificada = fDecodificar(peticion, mapa.fBytes());
    const QSize tam = decodificada ? hijo::fMedida(decodificada->natural, peticion.marco) : QSize();
    if (tam.isEmpty()) {
        return fotograma;
    }
    const QImage imagen = fAcabada(std::move(decodificada->imagen), tam);
    if (imagen.isNull()) {
        return fotograma;
    }
    fotograma.estado = EstadoHijo::Imagen;
    fotograma.intAncho = tam.width();
    fotograma.intAlto = tam.height();
    fotograma.natural = {static_cast<std::uint32_t>(decodificada->natural.width()),
                         static_cast<std::uint32_t>(decodificada->natural.height())};
    const auto *const lstPuntos = reinterpret_cast<const std::uint32_t *>(imagen.constBits());
    fotograma.lstPuntos.assign(lstPuntos, lstPuntos + imagen.sizeInBytes() / 4);
    return fotograma;
}

} // namespace

int main()
{
    hijo::fServir(
        [] {
            hijo::fPrepararQt();
            hijo::fPrepararHeif();
        },
        fHacer, std::chrono::seconds(3));
}
