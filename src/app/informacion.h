#pragma once

#include "browse/etiquetas.h"
#include "shared/hilos.h"
#include "shared/numeros.h"

#include <QObject>

#include <array>
#include <chrono>
#include <string>
#include <tuple>

class clsCajaInfo;
class QString;
class QWidget;

/// The information boxes: where the current file stands, what it is, the warning that its date is
/// not right, which is found out here, and the labels beside it.
class clsInformacion : public QObject {
public:
    /// @param intArriba where the boxes begin, in pixels.
    clsInformacion(QWidget *cliente, clsSignos signos, int intArriba);

    /// Tells of the current file. The list must not be empty.
    /// @param bolDePaso it is only passed by.
    void fMostrar(const clsEstado &estado, bool bolDePaso);
    /// Tells of it anew: its picture has come, or what was said in its place is done.
    void fNombrar(const clsEstado &estado);
    /// Tells beside the warning what the panels do not show by themselves.
    void fEtiquetar(const clsEstado &estado);
    /// Tells of a file that is being looked at, by its place alone.
    void fLugar(int lngPos, int lngCantidad);
    /// Says what is being done, in place of the file.
    void fDecir(const QString &strTexto);
    /// The same, painted at once: what begins lets no events run.
    void fAnunciar(const QString &strTexto);
    /// What it says there.
    [[nodiscard]] QString fDicho() const;
    void fVaciar();

    /// Where the boxes end, and the width of the warning, in pixels.
    [[nodiscard]] int fAbajo() const;
    [[nodiscard]] int fAnchoAviso() const;
    /// Places the warning, with the labels left of it, and brings the boxes to the front.
    void fDisponer(int intAviso);

private:
    void fCrearAviso();
    void fCrearEtiquetas();
    void fJuzgar(const std::string &strRuta, std::chrono::milliseconds paciencia);
    void fAvisar(bool bolMal);
    void fDisponerEtiquetas();

    const QWidget *m_cliente;
    const clsSignos m_signos;
    clsCajaInfo *m_txtInfo1;
    clsCajaInfo *m_txtInfo2;
    clsCajaInfo *m_txtInfo3;
    std::array<clsCajaInfo *, std::tuple_size_v<clsEtiquetas>> m_lstEtiquetas; ///< from the right
    clsHilos m_jueces; ///< find out whether the current file's date is right
};
