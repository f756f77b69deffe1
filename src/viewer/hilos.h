#pragma once

#include <functional>
#include <future>
#include <memory>
#include <utility>

class clsPiscina;

/// Threads that do pieces of work, first come, first served. They start with the first piece.
///
/// A piece can hang in a read of a disk that does not answer. It then gets a substitute, and at the
/// end its thread is left alone; so a piece must not refer to anything that may be gone by then.
class clsHilos {
public:
    /// @param intHilos threads that work at a time, besides those that hang.
    explicit clsHilos(int intHilos);
    /// Gives up what has not begun, and waits a moment for the rest.
    ~clsHilos();
    clsHilos(const clsHilos &) = delete;
    clsHilos &operator=(const clsHilos &) = delete;

    void fEncolar(std::function<void()> fPieza);
    /// Gives up what has not begun.
    void fVaciar();
    /// To be called by whoever has waited in vain: threads whose piece takes long already get a
    /// substitute, up to intMaximo threads.
    void fReforzar();

    static constexpr int intMaximo = 32;

private:
    std::shared_ptr<clsPiscina> m_piscina;
};

/// Has something found out on a thread; whoever asks decides how long to wait for it.
template <typename Respuesta>
[[nodiscard]] std::future<Respuesta> fPreguntar(clsHilos &hilos,
                                                std::function<Respuesta()> fResponder)
{
    const auto promesa = std::make_shared<std::promise<Respuesta>>();
    std::future<Respuesta> respuesta = promesa->get_future();
    hilos.fEncolar(
        [promesa, fResponder = std::move(fResponder)] { promesa->set_value(fResponder()); });
    return respuesta;
}
