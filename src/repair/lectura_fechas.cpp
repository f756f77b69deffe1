#include "repair/lectura_fechas.h"

#include "shared/qhilos.h"

#include <utility>

clsLecturaFechas::clsLecturaFechas(
    QObject *ventana, std::vector<std::string> lstRutas, clsLectorFechas fLeer,
    std::function<void(const std::string &strRuta, clsFechasFichero)> fLeida,
    std::function<void()> fMostrar)
    : m_lstRutas(std::move(lstRutas)), m_fLeer(std::move(fLeer)), m_fLeida(std::move(fLeida)),
      m_fMostrar(std::move(fMostrar)), m_hilos({.bolEnOrden = true, .fAvisar = fAvisarA(ventana)})
{
}

/// Has the next files read, but no more than some at a time.
void clsLecturaFechas::fPedir()
{
    constexpr std::size_t lngAdelanto = 64;
    for (; m_lngPedidos < fTodos() && m_hilos.fPendientes() < lngAdelanto; ++m_lngPedidos) {
        const std::string &strRuta = m_lstRutas[static_cast<std::size_t>(m_lngPedidos)];
        m_hilos.fPedir(
            [strRuta, fLeer = m_fLeer] { return fLeer(strRuta); },
            [this, &strRuta](clsFechasFichero fechas) { fTomar(strRuta, std::move(fechas)); });
    }
}

void clsLecturaFechas::fTomar(const std::string &strRuta, clsFechasFichero fechas)
{
    ++m_lngHechos;
    m_fLeida(strRuta, std::move(fechas));
    fPedir();
    const auto fMostrar = [this] {
        m_fMostrar();
        return true;
    };
    static_cast<void>(fLeyendo() ? m_ritmo.fSeguir(fMostrar) : fMostrar());
}
