#include "app/aplicacion.h"
#include "app/arranque.h"
#include "app/escritorio.h"
#include "app/frmMain.h"
#include "app/mensajes_qt.h"
#include "shared/ajustes.h"
#include "shared/errores.h"
#include "shared/formato_fecha.h"
#include "shared/hilos.h"
#include "shared/texto.h"
#include "sistema/archivo.h"
#include "sistema/entorno.h"

#include <QApplication>
#include <QScopeGuard>

#include <cerrno>
#include <string>
#include <vector>

namespace {

constexpr int intSalidaMal = 1;

/// Checks what has to hold before a window is shown; says what does not.
bool fComprobar(const std::string &strRaiz, clsMensajes &mensajes)
{
    if (!fFormatoFechaValido(fDFmtUsuario())) {
        mensajes.fAviso(
            Icono::Critico,
            "Para que el programa funcione correctamente el formato de la fecha debe ser "
            "'dd/MM/yyyy'.");
        return false;
    }
    if (!fExisteCarpeta(strRaiz)) {
        mensajes.fAviso(Icono::Problema, "Ruta no válida.");
        return false;
    }
    return true;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    QApplication aplicacion(intArgumentos, lstArgumentos);
    fPrepararAplicacion(aplicacion);
    clsMensajesQt mensajes;
    const std::string strRaiz =
        fRaizDeOrdenes(std::vector<std::string>(lstArgumentos + 1, lstArgumentos + intArgumentos),
                       fCarpetaPrograma(), fCarpetaTrabajo());
    if (!fComprobar(strRaiz, mensajes)) {
        return intSalidaMal;
    }
    const bool bolEscritura = fProbarEscritura(strRaiz);
    // The threads are given a moment to end before what they use is taken away.
    const auto despedida = qScopeGuard(clsHilos::fDespedir);
    clsHilos::fAvisarSinHilo([&](clsError error) {
        const auto fDecir = [&mensajes, error] {
            mensajes.fAviso(Icono::Problema,
                            "No se puede iniciar un hilo.\r\n" + fTextoError(error));
        };
        QMetaObject::invokeMethod(&aplicacion, fDecir, Qt::QueuedConnection);
    });
    const auto callado = qScopeGuard([] { clsHilos::fAvisarSinHilo(nullptr); });
    const std::string strAjustes = strRaiz + std::string(strFicheroAjustes);
    clsAjustes ajustes(strAjustes, bolEscritura);
    if (const clsError error = ajustes.fError(); error == EFBIG) {
        mensajes.fAviso(Icono::Problema, fTextoPantalla(strAjustes) + "\r\n" + fTextoError(error));
    }
    clsPreferencias preferencias;
    if (const auto malo = fLeerPreferencias(ajustes, preferencias)) {
        mensajes.fAviso(Icono::Critico, "El ajuste " + malo->strClave +
                                            " de Miravel.ini no es válido: '" + malo->strValor +
                                            "'.");
        return intSalidaMal;
    }
    const std::string strEscritorio = fFicheroEscritorio();
    clsAjustes escritorio(strEscritorio, !strEscritorio.empty());
    frmMain ventana({strRaiz, bolEscritura, preferencias}, ajustes, escritorio, mensajes);
    ventana.fIniciar();
    return QApplication::exec();
}
