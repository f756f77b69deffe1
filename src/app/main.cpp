#include "app/aplicacion.h"
#include "app/arranque.h"
#include "app/escritorio.h"
#include "app/frmMain.h"
#include "app/mensajes_qt.h"
#include "app/raiz.h"
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

/// Checks what has to hold before a folder is looked for; says what does not.
bool fComprobarFecha(clsMensajes &mensajes)
{
    if (!fFormatoFechaValido(fDFmtUsuario())) {
        mensajes.fAviso(
            Icono::Critico,
            "Para que el programa funcione correctamente el formato de la fecha debe ser "
            "'dd/MM/yyyy'.");
        return false;
    }
    return true;
}

/// Opens an archive and shows it until its window is closed.
/// @return the program's exit status.
int fAbrir(const std::string &strRaiz, clsAjustes &escritorio, clsMensajes &mensajes)
{
    if (!fExisteCarpeta(strRaiz)) {
        mensajes.fAviso(Icono::Problema, "Ruta no válida.");
        return intSalidaMal;
    }
    const bool bolEscritura = fProbarEscritura(strRaiz);
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
    fRecordarRaiz(escritorio, strRaiz);
    frmMain ventana({strRaiz, bolEscritura, preferencias}, ajustes, escritorio, mensajes);
    ventana.fIniciar();
    return QApplication::exec();
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    const bool bolSinCarpeta = fTomarSinCarpeta();
    QApplication aplicacion(intArgumentos, lstArgumentos);
    fPrepararAplicacion(aplicacion);
    clsMensajesQt mensajes;
    if (!fComprobarFecha(mensajes)) {
        return intSalidaMal;
    }
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
    const std::string strEscritorio = fFicheroEscritorio();
    clsAjustes escritorio(strEscritorio, !strEscritorio.empty());
    const auto raiz =
        fElegirRaiz({std::vector<std::string>(lstArgumentos + 1, lstArgumentos + intArgumentos),
                     fCarpetaPrograma(), fCarpetaTrabajo(), fCarpetaPersonal(), bolSinCarpeta},
                    escritorio, mensajes);
    return raiz ? fAbrir(*raiz, escritorio, mensajes) : 0;
}
