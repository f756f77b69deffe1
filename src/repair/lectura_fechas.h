#pragma once

#include "dates/fuentes.h"
#include "shared/hilos.h"
#include "shared/ritmo.h"

#include <QObject>

#include <functional>
#include <string>
#include <vector>

/// Reads the dates of many files; runs on threads, perhaps still when nobody waits any more.
using clsLectorFechas = std::function<clsFechasFichero(const std::string &strRuta)>;

/// Has the dates of many files read beside a window, and gives them in the order of the files.
class clsLecturaFechas {
public:
    /// @param ventana  whose thread gets them.
    /// @param fLeida   gets a file's.
    /// @param fMostrar runs every 50 ms, and in the end.
    clsLecturaFechas(QObject *ventana, std::vector<std::string> lstRutas, clsLectorFechas fLeer,
                     std::function<void(const std::string &strRuta, clsFechasFichero)> fLeida,
                     std::function<void()> fMostrar);

    void fEmpezar() { fPedir(); }
    [[nodiscard]] int fHechos() const { return m_lngHechos; }
    [[nodiscard]] int fTodos() const { return static_cast<int>(m_lstRutas.size()); }
    [[nodiscard]] bool fLeyendo() const { return m_lngHechos < fTodos(); }

private:
    void fPedir();
    void fTomar(const std::string &strRuta, clsFechasFichero fechas);

    const std::vector<std::string> m_lstRutas;
    const clsLectorFechas m_fLeer;
    const std::function<void(const std::string &, clsFechasFichero)> m_fLeida;
    const std::function<void()> m_fMostrar;
    int m_lngPedidos = 0;
    int m_lngHechos = 0;
    clsRitmo m_ritmo;
    clsHilos m_hilos;
};
