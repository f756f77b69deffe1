#include "viewer/hijo/servicio.h"

#include "sistema/canal.h"
#include "sistema/encierro.h"

#include <condition_variable>
#include <cstdlib>
#include <ctime>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace hijo {

namespace {

const clsDescriptor entrada(0);
const clsDescriptor salida(1);

/// Whether a request has come in.
bool fHay(std::chrono::milliseconds plazo)
{
    return fEsperarLectura(entrada, plazo).value_or(false);
}

/// Ends the program when the other side is gone, even in the middle of a file.
void fVigilar()
{
    fEsperarCierre(entrada);
    std::_Exit(0);
}

/// Ends the program when a file has taken too much time of the processors. It has a thread of its
/// own, which sleeps between files.
class clsVigia {
public:
    /// @param plazo 0: it watches nothing.
    explicit clsVigia(std::chrono::milliseconds plazo) : m_plazo(plazo)
    {
        if (plazo.count() > 0) {
            std::thread([this] { fVelar(); }).detach();
        }
    }
    void fEmpezar(std::int64_t lngBytes)
    {
        const std::lock_guard guarda(m_cerrojo);
        m_limite = fGastado() + m_plazo + std::chrono::milliseconds(lngBytes / 25000);
        m_bolTrabaja = true;
        m_cambio.notify_one();
    }
    void fAcabar()
    {
        const std::lock_guard guarda(m_cerrojo);
        m_bolTrabaja = false;
    }

private:
    static std::chrono::milliseconds fGastado()
    {
        return std::chrono::milliseconds(std::clock() / (CLOCKS_PER_SEC / 1000));
    }
    [[noreturn]] void fVelar()
    {
        std::unique_lock guarda(m_cerrojo);
        for (;;) {
            m_cambio.wait(guarda, [this] { return m_bolTrabaja; });
            m_cambio.wait_for(guarda, std::chrono::milliseconds(50));
            if (m_bolTrabaja && fGastado() > m_limite) {
                std::_Exit(intTarde);
            }
        }
    }

    const std::chrono::milliseconds m_plazo;
    std::mutex m_cerrojo;
    std::condition_variable m_cambio;
    std::chrono::milliseconds m_limite{0};
    bool m_bolTrabaja = false;
};

bool fContestar(std::uint32_t lngNumero, const clsFotograma &fotograma)
{
    clsRespuestaHijo respuesta;
    respuesta.lngNumero = lngNumero;
    respuesta.estado = fotograma.estado;
    respuesta.lngAncho = static_cast<std::uint32_t>(fotograma.intAncho);
    respuesta.lngAlto = static_cast<std::uint32_t>(fotograma.intAlto);
    respuesta.lngAnchoNatural = fotograma.natural.lngAncho;
    respuesta.lngAltoNatural = fotograma.natural.lngAlto;
    const std::string_view strCabeza(reinterpret_cast<const char *>(&respuesta), sizeof respuesta);
    const std::string_view strPuntos(reinterpret_cast<const char *>(fotograma.lstPuntos.data()),
                                     fotograma.lstPuntos.size() * sizeof(std::uint32_t));
    return !fEscribirTodo(salida, strCabeza) && !fEscribirTodo(salida, strPuntos);
}

bool fAtender(clsHacer fHacer, clsVigia &vigia)
{
    // Nothing to do for a second: what was kept goes back.
    if (!fHay(std::chrono::seconds(1))) {
        fDevolverMemoria();
    }
    clsPeticionHijo peticion;
    clsAbierto archivo;
    const auto lngLeidos = fRecibirAdjunto(entrada, &peticion, sizeof peticion, archivo.descriptor);
    if (lngLeidos.value_or(0) != sizeof peticion || !fCreible(peticion) ||
        !archivo.descriptor.fAbierto()) {
        return false;
    }
    archivo.huella.lngBytes = peticion.lngBytes;
    // The next request comes early only when nobody waits for the answer to this one any more.
    const auto fAnulado = [] { return fHay(std::chrono::milliseconds(0)); };
    vigia.fEmpezar(peticion.lngBytes);
    const clsFotograma fotograma = fHacer(peticion, archivo, fAnulado);
    vigia.fAcabar();
    // Whoever has the answer can count on it that nothing is open here.
    archivo.descriptor.fCerrar();
    return fContestar(peticion.lngNumero, fotograma);
}

} // namespace

void fServir(void (*fPreparar)(), clsHacer fHacer, std::chrono::milliseconds plazo)
{
    fPreparar();
    // Some thousands of files; then another child takes its place.
    fLimitarPrograma(std::uint64_t{2} << 30, std::chrono::minutes(2));
    fRetenerMemoria();
    if (fEncerrar()) {
        std::_Exit(intSinEncierro);
    }
    std::thread(fVigilar).detach();
    clsVigia vigia(plazo);
    while (fAtender(fHacer, vigia)) {
    }
    // Without the destructors of libraries that the other thread may still be in.
    std::_Exit(0);
}

} // namespace hijo
