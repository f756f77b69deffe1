#pragma once

#include "sistema/resultado.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

/// Threads that suit slow disks: waiting for a disk or a server costs no processor time.
inline constexpr int intHilosUsuales = 8;

/// Whether the answer of an order is no longer wanted; work that takes long looks at it.
using clsAnulado = std::atomic<bool>;

/// Does pieces of work beside the thread of whoever asks, and brings back their answers.
///
/// A piece can hang in a read of a disk that does not answer. The others then get a substitute for
/// its thread, and nobody waits for it at the end; so a piece must not refer to anything that may
/// be gone by then. Answers run in the asker's thread only, and never once this object is gone or
/// the order was given up: they may refer to whatever lives as long as it.
class clsHilos {
    struct clsTarea;
    class clsPiscina;

public:
    /// Has a function run in the asker's thread, soon; called on any thread. The function may come
    /// after this object is gone.
    using clsAviso = std::function<void(std::function<void()>)>;
    /// Names one order.
    using clsOrden = std::shared_ptr<clsTarea>;

    struct clsOpciones {
        int intHilos = intHilosUsuales; ///< pieces at a time, besides those that hang
        /// Threads at most. As many as intHilos: none gets a substitute, so that pieces of one
        /// thread run strictly one after the other.
        int intMaximo = 32;
        bool bolEnOrden = false; ///< answers come in the order of asking, not as they are ready
        clsAviso fAvisar{};      ///< without it, the asker calls fAtender
    };

    explicit clsHilos(clsOpciones opciones);
    /// Gives up all orders and waits for nothing.
    ~clsHilos();
    clsHilos(const clsHilos &) = delete;
    clsHilos &operator=(const clsHilos &) = delete;

    /// Orders a piece of work: within its turn first come, first served.
    /// @param fHacer   runs on a thread; it may take a const clsAnulado &.
    /// @param fTomar   gets what fHacer returned.
    /// @param intTurno those of lower turns begin before.
    template <typename Hacer, typename Tomar>
    clsOrden fPedir(Hacer fHacer, Tomar fTomar, int intTurno = 0)
    {
        return fEncolar(
            [fHacer = std::move(fHacer), fTomar = std::move(fTomar)](const clsAnulado &anulado) {
                return std::function<void()>(
                    [fTomar, respuesta = fLlamar(fHacer, anulado)]() mutable {
                        fTomar(std::move(respuesta));
                    });
            },
            intTurno);
    }

    /// Gives up an order, whether its piece has begun or not; nothing happens to one that has been
    /// answered.
    void fAnular(const clsOrden &orden);
    /// Gives up all orders.
    void fAnular();
    /// Gives up the orders whose piece has not begun.
    void fVaciar();
    /// Whether an order was given up.
    [[nodiscard]] static bool fAnulada(const clsOrden &orden);

    /// Orders whose answer is still to come. Who gives no more than some holds the memory down.
    [[nodiscard]] std::size_t fPendientes() const;
    /// Runs the next answer.
    /// @param espera how long to wait for it; not at all when none is to come.
    /// @return whether there was one.
    bool fAtender(std::chrono::milliseconds espera = {});
    /// Runs answers until that of an order was among them, for so long at most.
    /// @return whether it was.
    bool fEsperar(const clsOrden &orden, std::chrono::milliseconds plazo);

    /// Waits a moment for all threads of the program whose orders were given up: the end of the
    /// program takes things away that a thread may be using. To be called there, once.
    static void fDespedir();

    /// What to do, once, when the system does not give a thread. What is ordered is then done by
    /// the threads there are, or before the order returns.
    /// @param fAviso may run on any thread, and must not order anything.
    static void fAvisarSinHilo(std::function<void(clsError)> fAviso);

private:
    using clsPieza = std::function<std::function<void()>(const clsAnulado &)>;

    template <typename Hacer> static auto fLlamar(const Hacer &fHacer, const clsAnulado &anulado)
    {
        if constexpr (std::is_invocable_v<const Hacer &, const clsAnulado &>) {
            return fHacer(anulado);
        } else {
            return fHacer();
        }
    }
    clsOrden fEncolar(clsPieza fPieza, int intTurno);

    std::shared_ptr<clsPiscina> m_piscina;
};
