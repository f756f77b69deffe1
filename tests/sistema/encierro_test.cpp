// What the locks keep a program from, tried from inside by the program preso.
#include "sistema/canal.h"
#include "sistema/entorno.h"
#include "sistema/proceso.h"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>

namespace {

using clsDichos = std::map<std::string, std::string>;

/// What the program says, started as the child for videos is.
clsDichos fPreso(const char *strModo)
{
    const clsDescriptor heredable(open("/dev/null", O_RDONLY)); // not closed by starting a program
    auto extremos = fAbrirCanal();
    clsProceso proceso;
    clsDichos lstDichos;
    if (!extremos || !proceso.fIniciar({fCarpetaPrograma() + "preso", strModo}, extremos->suyo)) {
        return lstDichos;
    }
    extremos->suyo.fCerrar();
    std::string strTodo;
    while (fEsperarLectura(extremos->nuestro, std::chrono::seconds(20)).value_or(false)) {
        std::string strBytes(4096, '\0');
        const auto lngBytes = fRecibir(extremos->nuestro, strBytes.data(), strBytes.size());
        if (!lngBytes) {
            break;
        }
        strTodo.append(strBytes, 0, *lngBytes);
    }
    std::istringstream lineas(strTodo);
    for (std::string strLinea; std::getline(lineas, strLinea);) {
        const auto lngPunto = strLinea.find(':');
        lstDichos[strLinea.substr(0, lngPunto)] = strLinea.substr(lngPunto + 1);
    }
    return lstDichos;
}

const char *const lstIntentos[] = {
    "open",       "open folder", "create", "stat",  "unlink",   "memory file", "socket",
    "own socket", "connect",     "send",   "write", "fork",     "execve",      "kill",
    "signal",     "ptrace",      "limits", "code",  "new code",
};
const std::string strNegado = std::to_string(EPERM);

TEST(Encierro, RefusesEveryWayOut)
{
    clsDichos libre = fPreso("libre");
    clsDichos preso = fPreso("todo");
    EXPECT_EQ(preso["locked in"], "0");
    for (const char *strIntento : lstIntentos) {
        SCOPED_TRACE(strIntento);
        EXPECT_NE(libre[strIntento], ""); // it was tried
        EXPECT_NE(libre[strIntento], strNegado);
        EXPECT_EQ(preso[strIntento], strNegado);
    }
}

TEST(Encierro, LeavesWhatDecodingNeeds)
{
    clsDichos preso = fPreso("todo");
    EXPECT_EQ(preso["given file"], "1");
    EXPECT_EQ(preso["thread"], "1");
}

TEST(Encierro, FindsNothingOpenAndNoEnvironment)
{
    clsDichos libre = fPreso("libre");
    EXPECT_EQ(libre["descriptors"], " 0 1 2");
    EXPECT_EQ(libre["variables"], "0");
}

TEST(Encierro, KeepsFilesShutByLandlockAlone)
{
    clsDichos preso = fPreso("landlock");
    if (preso["landlock"] == "0") {
        GTEST_SKIP() << "this kernel has no Landlock, or does not let it be used";
    }
    for (const char *strIntento : {"open", "open folder", "create"}) {
        EXPECT_EQ(preso[strIntento], std::to_string(EACCES)) << strIntento;
    }
    EXPECT_EQ(preso["socket"], "0"); // which only the other lock shuts
    EXPECT_EQ(preso["given file"], "1");
}

} // namespace
