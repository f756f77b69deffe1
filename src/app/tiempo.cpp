#include "app/tiempo.h"

#include "filter/filtro.h"
#include "timeline/frmTiempo.h"

#include <QScopedValueRollback>

clsTiempo::clsTiempo(QWidget *cliente, QWidget *lista, const clsComun &comun, clsMandos &mandos,
                     std::function<void()> fRedisponer)
    : QObject(cliente), m_cliente(cliente), m_lista(lista), m_comun(comun),
      m_fRedisponer(std::move(fRedisponer))
{
    mandos.fAtender("tiempo", [this] { fAlternar(); });
    mandos.fAtender("irTiempo", [this] { fTecla(); });
}

int clsTiempo::fAlto() const
{
    const clsEstado &estado = m_comun.estado;
    return estado.bolTiempo && !estado.bolCompleta ? frmTiempo::fAlto(m_cliente->fontMetrics()) : 0;
}

void clsTiempo::fDisponer(const QRect &sitio)
{
    if (m_franja == nullptr && !sitio.isEmpty()) {
        m_franja = new frmTiempo(m_cliente, {[this](const auto &barra) { return fIr(barra); },
                                             [this](const auto &periodo) { fFiltrar(periodo); },
                                             [this] { fDejar(); }});
    }
    if (m_franja != nullptr) {
        if (sitio.isEmpty() && m_franja->hasFocus()) {
            fDejar();
        }
        m_franja->setGeometry(sitio);
        m_franja->setVisible(!sitio.isEmpty());
        fMostrar();
    }
}

int clsTiempo::fBajar(int intAbajo)
{
    if (m_franja == nullptr || m_franja->isHidden()) {
        return 0;
    }
    m_franja->move(m_franja->x(), intAbajo - m_franja->height());
    return m_franja->height();
}

void clsTiempo::fMostrar()
{
    if (m_franja == nullptr || m_franja->isHidden()) {
        return;
    }
    fMostrarLista();
    const clsEstado &estado = m_comun.estado;
    if (estado.filas.fVacia()) {
        return;
    }
    const auto fFecha = [&filas = estado.filas](int lngPos) {
        return filas.fDatFecha(filas.fOrden()[static_cast<std::size_t>(lngPos)]);
    };
    std::vector<clsFecha> lstPagina;
    const clsTramo pagina = fALaVista(estado);
    for (int lngPos = pagina.lngDesde; lngPos < pagina.lngHasta; ++lngPos) {
        lstPagina.push_back(fFecha(lngPos));
    }
    m_franja->fSituar(fFecha(estado.lngActual), std::move(lstPagina));
    m_franja->raise(); // the last cells of a page reach a little beyond the panel
}

/// The bars, when the list is another one, or more is known of it.
void clsTiempo::fMostrarLista()
{
    const clsFilas &filas = m_comun.estado.filas;
    const clsMalas &malas = m_comun.estado.malas;
    const std::pair mostrado(filas.fRevision(), malas.fCuantas());
    if (std::exchange(m_mostrado, mostrado) != mostrado) {
        m_franja->fMostrar(fContarDias(filas, malas.fEn(filas)));
    }
}

/// Shows or hides it.
void clsTiempo::fAlternar()
{
    clsEstado &estado = m_comun.estado;
    estado.bolTiempo = !estado.bolTiempo;
    m_comun.ajustes.fGuardarIni(strSeccionGeneral, "TIEMPO", estado.bolTiempo ? "1" : "0");
    m_comun.fEstadoCambiado();
    m_fRedisponer();
}

/// Goes to it, and when there already, hides it.
void clsTiempo::fTecla()
{
    if (!m_comun.estado.bolTiempo || m_franja == nullptr || m_franja->hasFocus()) {
        fAlternar();
    }
    if (m_franja != nullptr && !m_franja->isHidden()) {
        m_franja->setFocus(Qt::ShortcutFocusReason);
    }
}

void clsTiempo::fDejar() { m_lista->setFocus(); }

bool clsTiempo::fIr(const clsBarra &barra)
{
    clsEstado &estado = m_comun.estado;
    if (estado.bolOcupado) {
        return true; // what the user did before that is dropped, as all is meanwhile
    }
    if (estado.bolPaso || estado.intDibujos > 0) {
        ++estado.lngGeneracion; // ends what is being drawn: nobody looks at it any more
        return false;
    }
    const auto lngPos = fPrimera(estado.filas, barra);
    if (lngPos && *lngPos != estado.lngActual) {
        const QScopedValueRollback<bool> enPaso(estado.bolPaso, true);
        m_comun.fMostrar(*lngPos);
    }
    return true;
}

void clsTiempo::fFiltrar(const clsPeriodo &periodo)
{
    const clsEstado &estado = m_comun.estado;
    if (estado.bolOcupado || estado.bolPaso || estado.intDibujos > 0) {
        return;
    }
    clsFiltro filtro;
    filtro.bolFechas = true;
    filtro.datDesde = fMedianoche(periodo.desde);
    filtro.datHasta = {fMedianoche(periodo.hasta).lngSegundos - 1}; // with all of the last day
    fFiltrarPor(m_comun, filtro);
}
