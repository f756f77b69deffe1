#pragma once

#include "shared/hilos.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <iterator>
#include <list>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

/// Has pictures made on threads and keeps those that were used last. Belongs to the thread of the
/// window.
///
/// A picture has a key, which says all that it depends on; or that it does not depend on the file's
/// content, and then the work looks whether what is kept is still true.
/// @tparam Valor what is made; its fBytes() tells how much memory it takes.
template <typename Valor> class clsAlmacen {
public:
    struct clsHecho;
    /// Makes a picture; runs on a thread.
    using clsPieza = std::function<clsHecho(const clsAnulado &)>;
    /// What came of that.
    struct clsHecho {
        Valor valor;
        bool bolGuardar = true; ///< for as long as there is room
        clsPieza fSigue{};      ///< what is still to be done for it, on threads for what is slow
        int intMas = 0;         ///< by how much the turn of that is later
    };
    struct clsEncargo {
        std::string strClave;
        clsPieza fPieza;  ///< empty: it is kept, and is to stay
        int intTurno = 0; ///< what is slow begins in the order of the turns, then of this list
    };
    struct clsLimites {
        std::int64_t lngBytes;              ///< of what is kept
        std::size_t lngEntradas = SIZE_MAX; ///< and how many
        int intHilos;                       ///< threads that make pictures
        clsHilos::clsAviso fAvisar;         ///< brings answers into the window's thread
        std::function<void(const std::string &strClave)> fLlegada; ///< tells what has come of a key
    };

    explicit clsAlmacen(const clsLimites &limites)
        : m_limites(limites), m_hilos({.intHilos = limites.intHilos, .fAvisar = limites.fAvisar}),
          m_lentos({.intHilos = limites.intHilos, .fAvisar = limites.fAvisar})
    {
    }

    /// What is wanted from now on, the most urgent first, and stays while it is. Whatever else was
    /// wanted and is not made yet is dropped; what is under way goes on; what was made is made
    /// anew, if there is a piece of work for it.
    void fEncargar(std::vector<clsEncargo> lstEncargos)
    {
        m_hilos.fVaciar(); // they begin anew, in the new order
        m_lentos.fVaciar();
        auto mapAntes = std::exchange(m_mapTrabajos, {});
        for (clsEncargo &encargo : lstEncargos) {
            auto antes = mapAntes.extract(encargo.strClave);
            const bool bolVale = !antes.empty() && !antes.mapped().bolHecho;
            auto [it, bolNuevo] = m_mapTrabajos.emplace(
                std::move(encargo.strClave), bolVale ? std::move(antes.mapped()) : clsTrabajo());
            clsTrabajo &trabajo = it->second;
            if (bolNuevo && !bolVale) {
                trabajo.bolHay = trabajo.bolHecho = encargo.fPieza == nullptr;
                trabajo.fPieza = std::move(encargo.fPieza);
            }
            if (bolNuevo) {
                trabajo.intTurno = encargo.intTurno;
            }
            if (!trabajo.bolHecho && (!trabajo.orden || clsHilos::fAnulada(trabajo.orden))) {
                fLanzar(it->first, trabajo);
            }
        }
        for (const auto &[strClave, trabajo] : mapAntes) {
            if (trabajo.orden) {
                (trabajo.bolLento ? m_lentos : m_hilos).fAnular(trabajo.orden);
            }
        }
        fRecortar(); // a large one that is no longer wanted makes room for what comes
    }

    /// What has come by now of an order of the last fEncargar; nullptr when that is nothing.
    [[nodiscard]] const Valor *fTomar(const std::string &strClave)
    {
        const auto it = m_mapTrabajos.find(strClave);
        if (it == m_mapTrabajos.end() || !it->second.bolHay) {
            return nullptr;
        }
        return it->second.resultado ? &*it->second.resultado : fGuardado(strClave);
    }

    /// Waits without letting events run until more has come of an order of the last fEncargar.
    /// @return false when nothing has in time, or nothing is to come.
    bool fEsperar(const std::string &strClave, std::chrono::milliseconds plazo)
    {
        const auto it = m_mapTrabajos.find(strClave);
        if (it == m_mapTrabajos.end() || it->second.bolHecho) {
            return false;
        }
        const clsHilos::clsOrden orden = it->second.orden;
        return (it->second.bolLento ? m_lentos : m_hilos).fEsperar(orden, plazo);
    }

    /// What is kept under a key, whatever is ordered; nullptr when there is nothing. Counts as
    /// used.
    [[nodiscard]] const Valor *fGuardado(const std::string &strClave)
    {
        const auto it = m_mapGuardadas.find(strClave);
        if (it == m_mapGuardadas.end()) {
            return nullptr;
        }
        m_lstGuardadas.splice(m_lstGuardadas.begin(), m_lstGuardadas, it->second);
        return &it->second->valor;
    }

    /// Takes over what has come, without waiting for an event that says so.
    void fRecoger()
    {
        while (m_hilos.fAtender() || m_lentos.fAtender()) {
        }
    }

private:
    struct clsTrabajo {
        clsPieza fPieza;
        int intTurno = 0;
        int intMas = 0;
        bool bolLento = false;
        bool bolHay = false;            ///< something of it has come
        bool bolHecho = false;          ///< all of it
        std::optional<Valor> resultado; ///< unless it is kept
        clsHilos::clsOrden orden;
    };
    struct clsEntrada {
        std::string strClave;
        Valor valor;
    };
    using clsEntradas = std::list<clsEntrada>;

    void fLanzar(const std::string &strClave, clsTrabajo &trabajo)
    {
        trabajo.orden =
            (trabajo.bolLento ? m_lentos : m_hilos)
                .fPedir(
                    trabajo.fPieza,
                    [this, strClave](clsHecho hecho) { fRecibir(strClave, std::move(hecho)); },
                    trabajo.intTurno + trabajo.intMas);
    }

    void fRecibir(const std::string &strClave, clsHecho hecho)
    {
        clsTrabajo &trabajo = m_mapTrabajos.at(strClave); // else its order was given up
        if (hecho.bolGuardar) {
            trabajo.resultado.reset();
            fGuardar(strClave, std::move(hecho.valor));
        } else {
            trabajo.resultado = std::move(hecho.valor);
        }
        trabajo.bolHay = true;
        trabajo.bolHecho = hecho.fSigue == nullptr;
        trabajo.fPieza = std::move(hecho.fSigue);
        if (!trabajo.bolHecho) {
            trabajo.bolLento = true;
            trabajo.intMas = hecho.intMas;
            fLanzar(strClave, trabajo);
        }
        m_limites.fLlegada(strClave);
    }

    void fGuardar(const std::string &strClave, Valor valor)
    {
        if (const auto it = m_mapGuardadas.find(strClave); it != m_mapGuardadas.end()) {
            fQuitar(it->second);
        }
        m_lngBytes += valor.fBytes();
        m_lstGuardadas.push_front({strClave, std::move(valor)});
        m_mapGuardadas.emplace(strClave, m_lstGuardadas.begin());
        fRecortar();
    }

    void fQuitar(typename clsEntradas::iterator it)
    {
        m_lngBytes -= it->valor.fBytes();
        m_mapGuardadas.erase(it->strClave);
        m_lstGuardadas.erase(it);
    }

    /// Forgets what was not used for longest; what is wanted stays.
    void fRecortar()
    {
        for (auto it = m_lstGuardadas.end(); it != m_lstGuardadas.begin();) {
            if (m_lngBytes <= m_limites.lngBytes &&
                m_lstGuardadas.size() <= m_limites.lngEntradas) {
                return;
            }
            const auto ultima = std::prev(it);
            if (m_mapTrabajos.contains(ultima->strClave)) {
                it = ultima;
            } else {
                fQuitar(ultima);
            }
        }
    }

    const clsLimites m_limites;
    std::unordered_map<std::string, clsTrabajo> m_mapTrabajos; ///< what is wanted
    clsEntradas m_lstGuardadas;                                ///< last used first
    std::unordered_map<std::string, typename clsEntradas::iterator> m_mapGuardadas;
    std::int64_t m_lngBytes = 0; ///< of the kept ones
    clsHilos m_hilos;
    clsHilos m_lentos;
};
