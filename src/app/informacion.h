#pragma once

#include "browse/estado.h"
#include "shared/numeros.h"
#include "viewer/hilos.h"

#include <QObject>
#include <QTimer>

#include <future>

class clsCajaInfo;
class QString;
class QWidget;

/// The information boxes: where the current file stands, what it is, and the warning that its date
/// is not right, which is found out here.
class clsInformacion : public QObject {
public:
    /// @param intArriba where the boxes begin, in pixels.
    clsInformacion(QWidget *cliente, clsSignos signos, int intArriba);

    /// Tells of the current file. The list must not be empty.
    void fMostrar(const clsEstado &estado);
    /// Tells of a file that is being looked at, by its place alone.
    void fLugar(int lngPos, int lngCantidad);
    /// Says what is being done, in place of the file.
    void fDecir(const QString &strTexto);
    void fVaciar();

    /// Where the boxes end, and the width of the warning, in pixels.
    [[nodiscard]] int fAbajo() const;
    [[nodiscard]] int fAnchoAviso() const;
    /// Places the warning and brings the boxes to the front.
    void fDisponer(int intAviso);

private:
    void fCrearAviso();
    void fJuzgar(const std::string &strRuta);
    void fTomarVeredicto();
    void fAvisar(bool bolMal);

    const QWidget *m_cliente;
    const clsSignos m_signos;
    clsCajaInfo *m_txtInfo1;
    clsCajaInfo *m_txtInfo2;
    clsCajaInfo *m_txtInfo3;
    QTimer m_relojVeredicto;       ///< looks whether the verdict has come
    std::future<bool> m_veredicto; ///< whether the current file's date is right
    clsHilos m_jueces{2};          ///< find that out: reading the file can take its time
};
