#include "viewer/hijo.h"

#include "sistema/canal.h"

#include <algorithm>
#include <string_view>
#include <thread>
#include <utility>

namespace {

using Fin = clsCuadroHijo::Fin;

/// How long the child may keep silent before bolAnulado is looked at again.
constexpr std::chrono::milliseconds pasoAnulado(20);
/// What a shell says, and posix_spawn's child, about a program that cannot run.
constexpr int intNoArranca = 127;
/// The largest box that a frame of a video is asked for.
constexpr std::uint32_t lngLadoFotograma = 4096;

/// Waits with one of the two functions of the channel.
/// @return Imagen when it may be used, else Anulado, Tarde or Roto.
template <typename Esperar>
Fin fEsperar(Esperar fCanal, const clsDescriptor &canal,
             clsProgramaHijo::clsReloj::time_point limite, const std::atomic<bool> &bolAnulado)
{
    for (;;) {
        const auto queda =
            std::chrono::ceil<std::chrono::milliseconds>(limite - clsProgramaHijo::clsReloj::now());
        if (bolAnulado) {
            return Fin::Anulado;
        }
        if (queda.count() <= 0) {
            return Fin::Tarde;
        }
        const auto listo = fCanal(canal, std::min(queda, pasoAnulado));
        if (!listo || *listo) {
            return listo ? Fin::Imagen : Fin::Roto;
        }
    }
}

} // namespace

bool fPasajero(Fin fin)
{
    return fin == Fin::NoSeLee || fin == Fin::Tarde || fin == Fin::Roto || fin == Fin::NoArranca ||
           fin == Fin::Anulado;
}

clsProgramaHijo::clsProgramaHijo(std::string strPrograma, std::chrono::milliseconds plazo)
    : m_strPrograma(std::move(strPrograma)), m_plazo(plazo)
{
}

clsCuadroHijo clsProgramaHijo::fPedir(const clsAbierto &video, int intLado,
                                      const std::atomic<bool> &bolAnulado)
{
    const auto lngLado =
        std::clamp<std::uint32_t>(static_cast<std::uint32_t>(intLado), 1, lngLadoFotograma);
    return fPreguntar(video,
                      {
                          PeticionHijo::Fotograma, {lngLado, lngLado, lngLado * lngLado}
    },
                      bolAnulado);
}

clsCuadroHijo clsProgramaHijo::fPedirImagen(const clsAbierto &foto, PeticionHijo cual,
                                            clsMarcoHijo marco, const std::atomic<bool> &bolAnulado)
{
    marco.lngAncho = std::clamp<std::uint32_t>(marco.lngAncho, 1, lngLadoMaximo);
    marco.lngAlto = std::clamp<std::uint32_t>(marco.lngAlto, 1, lngLadoMaximo);
    marco.lngPixeles = std::clamp<std::uint32_t>(marco.lngPixeles, 1, lngPixelesMaximos);
    return fPreguntar(foto, {cual, marco}, bolAnulado);
}

std::string clsProgramaHijo::fPedirFechas(const clsAbierto &video,
                                          const std::atomic<bool> &bolAnulado)
{
    constexpr std::uint32_t lngPuntos = lngTextoMaximo / sizeof(std::uint32_t);
    const clsCuadroHijo cuadro =
        fPreguntar(video,
                   {
                       PeticionHijo::Fechas, {lngPuntos, lngPuntos, lngPuntos}
    },
                   bolAnulado);
    const std::string_view strBytes(reinterpret_cast<const char *>(cuadro.lstPuntos.data()),
                                    cuadro.lstPuntos.size() * sizeof(std::uint32_t));
    return std::string(strBytes.substr(0, strBytes.find('\0')));
}

clsCuadroHijo clsProgramaHijo::fPreguntar(const clsAbierto &archivo, const clsPregunta &pregunta,
                                          const std::atomic<bool> &bolAnulado)
{
    clsCuadroHijo cuadro;
    if (bolAnulado) {
        cuadro.fin = Fin::Anulado;
        return cuadro;
    }
    const auto limite = clsReloj::now() + m_plazo;
    const bool bolDebia = fDebe();
    const bool bolRecien = m_bolRecien || !m_proceso.fIniciado();
    cuadro = fIntentar(archivo, pregunta, {limite, bolAnulado});
    // Its failure over an older request says nothing about this file; neither does the death of a
    // child that served before: it may have died of old age.
    const bool bolPorVieja = bolDebia && (cuadro.fin == Fin::Tarde || cuadro.fin == Fin::Agotado ||
                                          cuadro.fin == Fin::Roto);
    if (bolPorVieja) {
        return fIntentar(archivo, pregunta, {clsReloj::now() + m_plazo, bolAnulado});
    }
    if (cuadro.fin == Fin::Roto && !bolRecien) {
        return fIntentar(archivo, pregunta, {limite, bolAnulado});
    }
    return cuadro;
}

clsCuadroHijo clsProgramaHijo::fIntentar(const clsAbierto &archivo, const clsPregunta &pregunta,
                                         clsEspera espera)
{
    clsCuadroHijo cuadro;
    cuadro.fin = Fin::NoArranca;
    if (!fPreparar()) {
        return cuadro;
    }
    if (fDebe()) {
        espera.limite = m_limite; // first it has to come to an end with the older one
    } else {
        m_limite = espera.limite;
    }
    clsPeticionHijo peticion;
    peticion.lngNumero = ++m_lngNumero;
    peticion.lngBytes = archivo.huella.lngBytes;
    peticion.marco = pregunta.marco;
    peticion.cual = pregunta.cual;
    cuadro.fin = fEnviar(peticion, archivo.descriptor, espera);
    if (cuadro.fin == Fin::Imagen) {
        cuadro = fRespuesta(pregunta.marco, espera);
    } else {
        fDerribar(cuadro.fin); // it will never answer this number
    }
    return cuadro;
}

bool clsProgramaHijo::fPreparar()
{
    if (m_proceso.fIniciado()) {
        return true;
    }
    auto extremos = fAbrirCanal();
    if (!extremos) {
        return false;
    }
    m_canal = std::move(extremos->nuestro);
    m_bolRecien = true;
    m_lngVista = m_lngNumero;
    return m_proceso.fIniciar({m_strPrograma}, extremos->suyo);
}

Fin clsProgramaHijo::fEnviar(const clsPeticionHijo &peticion, const clsDescriptor &video,
                             const clsEspera &espera) const
{
    const std::string_view strBytes(reinterpret_cast<const char *>(&peticion), sizeof peticion);
    for (bool bolHecho = false; !bolHecho;) {
        const Fin fin = fEsperar(fEsperarEscritura, m_canal, espera.limite, espera.bolAnulado);
        if (fin != Fin::Imagen) {
            return fin;
        }
        const auto lngEnviados = ::fEnviar(m_canal, strBytes, video);
        if (!lngEnviados) {
            return Fin::Roto;
        }
        bolHecho = *lngEnviados > 0; // all of them, being so few
    }
    return Fin::Imagen;
}

Fin clsProgramaHijo::fRecibir(void *datos, std::size_t lngBytes, const clsEspera &espera,
                              std::size_t &lngHechos) const
{
    for (lngHechos = 0; lngHechos < lngBytes;) {
        const Fin fin = fEsperar(fEsperarLectura, m_canal, espera.limite, espera.bolAnulado);
        if (fin != Fin::Imagen) {
            return fin;
        }
        const auto lngRecibidos =
            ::fRecibir(m_canal, static_cast<char *>(datos) + lngHechos, lngBytes - lngHechos);
        if (!lngRecibidos) {
            return Fin::Roto;
        }
        lngHechos += *lngRecibidos;
    }
    return Fin::Imagen;
}

clsCuadroHijo clsProgramaHijo::fRespuesta(const clsMarcoHijo &marco, clsEspera &espera)
{
    clsCuadroHijo cuadro;
    for (;;) {
        clsRespuestaHijo respuesta;
        std::size_t lngHechos = 0;
        cuadro.fin = fRecibir(&respuesta, sizeof respuesta, espera, lngHechos);
        if (cuadro.fin == Fin::Anulado && lngHechos == 0) {
            return cuadro; // it may live, and owes
        }
        const bool bolSuya = respuesta.lngNumero == m_lngNumero;
        const bool bolCreible = respuesta.lngNumero == m_lngVista + 1 &&
                                fCreible(respuesta, bolSuya ? marco : marcoMayor);
        if (cuadro.fin == Fin::Imagen && bolCreible) {
            cuadro.lstPuntos.resize(std::size_t{respuesta.lngAncho} * respuesta.lngAlto);
            cuadro.fin =
                fRecibir(cuadro.lstPuntos.data(), cuadro.lstPuntos.size() * sizeof(std::uint32_t),
                         espera, lngHechos);
        } else if (cuadro.fin == Fin::Imagen) {
            cuadro.fin = Fin::Roto;
        }
        if (cuadro.fin != Fin::Imagen) {
            cuadro.lstPuntos.clear();
            fDerribar(cuadro.fin);
            return cuadro;
        }
        ++m_lngVista;
        m_bolRecien = false;
        if (bolSuya) {
            cuadro.intAncho = static_cast<int>(respuesta.lngAncho);
            cuadro.intAlto = static_cast<int>(respuesta.lngAlto);
            cuadro.natural = {respuesta.lngAnchoNatural, respuesta.lngAltoNatural};
            cuadro.fin = respuesta.estado == EstadoHijo::Imagen ? Fin::Imagen : Fin::SinImagen;
            return cuadro;
        }
        // The time for the next one begins when the child can turn to it.
        m_limite = espera.limite = clsReloj::now() + m_plazo;
    }
}

void clsProgramaHijo::fDerribar(Fin &fin)
{
    // The channel closes a moment before the end can be seen.
    for (int intVez = 0; intVez < 50 && fin == Fin::Roto; ++intVez) {
        if (const auto codigo = m_proceso.fFin()) {
            fin = *codigo == intTarde                        ? Fin::Agotado
                  : *codigo == intNoArranca && m_bolRecien   ? Fin::NoArranca
                  : *codigo == intSinEncierro && m_bolRecien ? Fin::SinEncierro
                                                             : fin;
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    m_proceso.fMatar();
    m_canal = clsDescriptor();
    m_lngVista = m_lngNumero;
}
