#pragma once

#include "catalogue/orden.h"
#include "repair/cuentas_reparacion.h"
#include "repair/desfase.h"
#include "repair/nombre_reparado.h"
#include "repair/propuesta.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Columns of the table of repairs, in their order from left to right.
enum class ColumnaReparacion { Marca, Nombre, Carpeta, Actual, Nueva, Fuente, NombreNuevo, Reparo };
inline constexpr int intColumnasReparacion = 8;

/// Which rows are shown.
enum class VistaReparacion { Todas, ConPropuesta, Dudosas, SinPropuesta };

/// A file that is to be repaired.
struct clsReparado {
    std::string strRuta;      ///< as it was added
    std::string strRutaNueva; ///< the same where the name stays
    clsFecha fecha;           ///< local
};

/// First and last date of several; zero where there is none.
struct clsTramoFechas {
    clsFecha datPrimera;
    clsFecha datUltima;
};

/// The table of the window that repairs dates: the files, what is known of each, what is proposed,
/// what the user has made of it, and which of them are shown in which order. 100,000 rows take tens
/// of megabytes, and each call below the time of a frame or two (but for sorting by names).
///
/// Rows have a number, in the order of adding; positions count those shown. Everything that tells
/// of "the ticked ones" means all ticked rows, shown or not.
class clsTablaReparacion {
public:
    /// @param strRaiz  the archive's root, with a trailing "/": folders show without it.
    /// @param datAhora the present local date; what lies behind it is doubtful.
    explicit clsTablaReparacion(std::string strRaiz = "/", clsFecha datAhora = {},
                                clsRelojLocal reloj = fFechaLocal);

    void fReservar(std::size_t lngFilas);
    /// Adds a row with its proposal. It is shown at the end, if at all, until the next fOrdenar.
    void fAgregar(std::string strRuta, clsFechasFichero fechas);

    [[nodiscard]] int fFilas() const { return static_cast<int>(m_lstFilas.size()); }

    // What is shown.
    [[nodiscard]] int fCantidad() const { return static_cast<int>(m_lstVista.size()); }
    /// The number of the row at a position.
    [[nodiscard]] int fFila(int lngPos) const { return m_lstVista[fIndice(lngPos)]; }
    /// The position of a row; -1 when it is not shown.
    [[nodiscard]] int fPosicion(int lngFila) const;
    void fMostrar(VistaReparacion vista);
    [[nodiscard]] VistaReparacion fVista() const { return m_vista; }
    /// Orders the rows that are shown; rows that compare equal stay as they are.
    void fOrdenar(ColumnaReparacion columna, bool bolDescendente, const clsRangos &fRangos);

    // A row, by its number.
    [[nodiscard]] const std::string &fRuta(int lngFila) const;
    [[nodiscard]] const clsFechasFichero &fFechas(int lngFila) const;
    [[nodiscard]] const clsPropuesta &fPropuesta(int lngFila) const;
    /// A column's text for the screen (UTF-8); of Marca none.
    [[nodiscard]] std::string fTexto(int lngFila, ColumnaReparacion columna) const;
    [[nodiscard]] std::string fRutaNueva(int lngFila) const;
    /// What keeps a ticked row from its new name. While rows are added it may know less, by an
    /// eighth of them: looking at all of them for each would take too long.
    [[nodiscard]] Choque fChoque(int lngFila) const;

    // Ticks. A row without a proposal takes one, too: so it gets a date from the user.
    [[nodiscard]] bool fMarcada(int lngFila) const;
    void fMarcar(int lngFila, bool bolMarca);
    /// Ticks or unticks all rows that are shown.
    void fMarcarVista(bool bolMarca);

    // What the user makes of the ticked rows. How many got it.
    /// The sources that at least one of them has, in the order of Fuente.
    [[nodiscard]] std::vector<Fuente> fFuentesMarcadas() const;
    /// Their date comes from this source; rows that have none of it stay as they are.
    int fElegirFuente(Fuente fuente);
    /// Their date is this one.
    int fFechar(clsFecha fecha);
    /// Their proposal is that of the program again.
    int fRestaurar();
    /// Their date is that many seconds later than their proposal without a shift or, where there is
    /// none, than the file's present date. It replaces an earlier shift; 0 takes it away.
    int fDesplazar(std::int64_t lngSegundos);
    /// First and last of the new dates that fDesplazar would give, or of those that are.
    [[nodiscard]] clsTramoFechas fTramo(std::optional<std::int64_t> lngSegundos = {}) const;

    void fNombres(NombreReparado nombre);
    [[nodiscard]] NombreReparado fNombres() const { return m_nombre; }

    [[nodiscard]] clsCuentasReparacion fCuentas() const;

    /// New paths of ticked rows of which nobody has said yet whether something has them. Asking the
    /// disk is for a thread.
    [[nodiscard]] std::vector<std::string> fPorComprobar() const;
    /// Says so. What changed meanwhile does no harm.
    void fComprobado(const std::vector<std::pair<std::string, bool>> &lstExisten);

    /// What is to be done: the ticked rows that have a new date and no collision, by their number.
    [[nodiscard]] std::vector<clsReparado> fReparados() const;
    /// How many that are.
    [[nodiscard]] int fReparables() const;

    /// Raised by every change of what is shown, its order or its texts.
    [[nodiscard]] std::uint64_t fRevision() const { return m_lngRevision; }

private:
    struct clsFilaReparacion {
        std::string strRuta;
        clsFechasFichero fechas;
        clsPropuesta base;      ///< without a shift
        clsPropuesta propuesta; ///< with it
        std::int64_t lngDesfase = 0;
        clsClaveRuta claveNueva = 0; ///< of the path it is to get; 0: it keeps its own
        bool bolMarcada = false;
    };
    [[nodiscard]] static std::size_t fIndice(int lng) { return static_cast<std::size_t>(lng); }
    [[nodiscard]] bool fPasa(const clsFilaReparacion &fila) const;
    template <typename Clave> void fOrdenarPor(bool bolDescendente, const Clave &fClave);
    void fOrdenarPorTexto(ColumnaReparacion columna, bool bolDescendente, const clsRangos &fRangos);
    [[nodiscard]] std::string fDestino(const clsFilaReparacion &fila) const;
    [[nodiscard]] static std::string fTextoOrigen(const clsFilaReparacion &fila);
    void fPonerClave(clsFilaReparacion &fila) const;
    void fMirar(std::size_t lngRetraso = 0) const;
    [[nodiscard]] bool fReparable(int lngFila) const;
    void fCambiar();
    template <typename Hacer> int fCadaMarcada(const Hacer &fHacer);
    bool fPonerBase(clsFilaReparacion &fila, clsFecha fecha, Fuente fuente) const;
    [[nodiscard]] static std::optional<clsFecha> fDesplazada(const clsFilaReparacion &fila,
                                                             std::int64_t lngSegundos);

    std::string m_strRaiz;
    clsFecha m_datAhora;
    clsRelojLocal m_reloj;
    std::vector<clsFilaReparacion> m_lstFilas;
    std::vector<int> m_lstVista;
    VistaReparacion m_vista = VistaReparacion::Todas;
    NombreReparado m_nombre = NombreReparado::AnteponerFecha;
    std::uint64_t m_lngRevision = 0;
    // Looked for when somebody asks.
    mutable clsNombresNuevos m_nombres;
    mutable std::vector<clsNombresNuevos::clsMirada> m_lstMiradas; ///< of the rows there were then
    mutable bool m_bolMirado = false;
};
