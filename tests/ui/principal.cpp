// The program of the window tests: miravel_ui_tests SUBJECT [arguments of Qt's test runner].
#include "sesion.h"

#include <cstdio>
#include <cstdlib>
#include <map>

namespace {

std::map<QString, clsTema::fnCorrer> &fTemas()
{
    static std::map<QString, clsTema::fnCorrer> lstTemas;
    return lstTemas;
}

int fAyudar()
{
    std::fputs("Usage: miravel_ui_tests SUBJECT [ARGUMENTS], with a subject of:", stderr);
    for (const auto &[strNombre, fCorrer] : fTemas()) {
        std::fprintf(stderr, " %s", qUtf8Printable(strNombre));
    }
    std::fputs("\n", stderr);
    return 2;
}

} // namespace

clsTema::clsTema(const char *strNombre, fnCorrer fCorrer)
{
    fTemas().emplace(QString::fromUtf8(strNombre), fCorrer);
}

int main(int intArgumentos, char **lstArgumentos)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("TZ", "UTC", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    tzset();
    const clsArbol arbolPropio; // neither the desktop's thumbnails nor the user's Baúl are touched
    setenv("XDG_CACHE_HOME", arbolPropio.fRaiz().c_str(), 1);
    setenv("TMPDIR", arbolPropio.fRaiz().c_str(), 1);
    QApplication aplicacion(intArgumentos, lstArgumentos);
    QStringList lstTexto = QApplication::arguments();
    const auto tema = fTemas().find(lstTexto.value(1));
    if (tema == fTemas().end()) {
        return fAyudar();
    }
    lstTexto.removeAt(1);
    fPrepararAplicacion(aplicacion);
    QApplication::setQuitOnLastWindowClosed(false);
    return tema->second(lstTexto);
}
