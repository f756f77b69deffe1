#pragma once

#include "viewer/hijo.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

/// Children of one program, for many threads. They are killed when it goes.
class clsHijos {
public:
    /// @param strPrograma its path.
    /// @param plazo       time for one file.
    /// @param intCuantos  children at most.
    clsHijos(const std::string &strPrograma, std::chrono::milliseconds plazo, unsigned intCuantos);

    /// A child that a call has for itself; it is given back at the end.
    using clsTurno = std::unique_ptr<clsProgramaHijo, std::function<void(clsProgramaHijo *)>>;
    /// Waits as long as all are at work.
    /// @return nothing when the call was given up meanwhile.
    [[nodiscard]] clsTurno fTomar(const std::atomic<bool> &bolAnulado);

private:
    struct clsPuesto {
        clsProgramaHijo hijo;
        bool bolOcupado = false;
    };
    std::mutex m_cerrojo; ///< guards what follows, but not the children that are at work
    std::condition_variable m_libre;
    std::vector<std::unique_ptr<clsPuesto>> m_lstPuestos;
};

/// The first of these paths where there is a program that can run; empty: none.
[[nodiscard]] std::string fProgramaHijo(const std::vector<std::string> &lstRutas);

/// Where a child program of that name may lie: beside ours, or in ../libexec/miravel/.
[[nodiscard]] std::vector<std::string> fSitiosHijo(const std::string &strNombre);
