#pragma once

#include "duplicates/candidatos.h"
#include "duplicates/comparacion.h"
#include "duplicates/grupo.h"
#include "shared/hilos.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Why files were left out, and how many.
struct clsOmitidos {
    int intFuera = 0;      ///< not below the root
    int intFaltan = 0;     ///< not on the disk
    int intIlegibles = 0;  ///< they cannot be read, or have changed meanwhile
    int intVacios = 0;     ///< without any content
    int intOtroNombre = 0; ///< further names of a file, which are no copies
};

/// Looks which of some files have the same content: first at their sizes, then at how those of one
/// size begin, at last at all of those that begin alike. All of it on threads; belongs to the
/// thread of whoever asks. It may go away at any time, whatever the disk does.
class clsBusquedaCopias {
public:
    struct clsOpciones {
        clsHilos::clsAviso fAvisar{}; ///< brings answers; without it the asker calls fAtender
        /// Whether the date of a file is right; runs on a thread.
        std::function<bool(const std::string &strRuta)> fFechaBien;
        std::function<void(clsGrupo)> fGrupo; ///< gets what was found, as it is
        std::function<void()> fAvance;        ///< runs whenever it has come on, and in the end
    };

    clsBusquedaCopias(clsCandidatos candidatos, clsOpciones opciones);
    void fEmpezar();
    /// See clsHilos.
    bool fAtender(std::chrono::milliseconds espera) { return m_hilos.fAtender(espera); }

    [[nodiscard]] bool fBuscando() const { return m_fase != Fase::Fin; }
    /// What is being done, in a few words (UTF-8), and how far it has come.
    [[nodiscard]] std::string_view fObra() const;
    [[nodiscard]] int fHechos() const;
    [[nodiscard]] int fTodos() const;
    [[nodiscard]] const clsOmitidos &fOmitidos() const { return m_omitidos; }

private:
    enum class Fase { Tamanos, Comienzos, Contenidos, Fin };
    using clsIndices = std::vector<std::size_t>;
    struct clsTarea;

    [[nodiscard]] std::size_t fPiezas() const;
    void fPedir();
    void fPedirUno(std::size_t lngCual);
    void fPedirTurno(const std::shared_ptr<clsTarea> &tarea);
    void fUnoHecho();
    void fSiguienteFase();
    void fTomarTamano(const std::string &strRuta, const clsResultado<clsDatosArchivo> &datos);
    void fTomarTurno(const std::shared_ptr<clsTarea> &tarea);
    void fOmitir(clsError error);
    void fAgruparPorTamano();
    void fAgruparPorComienzo();
    [[nodiscard]] std::shared_ptr<clsTarea> fTarea(const clsIndices &lstGrupo) const;

    const std::vector<std::string> m_lstRutas;
    const clsOpciones m_opciones;
    Fase m_fase = Fase::Tamanos;
    std::vector<clsGemelo> m_lstGemelos;   ///< what is there; from Comienzos on in order
    clsIndices m_lstFicheros;              ///< the first name of each file that is read
    std::vector<std::size_t> m_lstNumeros; ///< how these begin
    std::vector<bool> m_lstLegibles;       ///< whether that could be read
    std::vector<clsIndices> m_lstGrupos;   ///< files that begin alike
    std::size_t m_lngPedidos = 0;          ///< of this phase
    std::size_t m_lngHechos = 0;
    std::int64_t m_lngBytes = 0;      ///< compared by now
    std::int64_t m_lngTodosBytes = 0; ///< that are to be compared
    clsOmitidos m_omitidos;
    clsHilos m_hilos;
};
