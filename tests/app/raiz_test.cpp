#include "app/raiz.h"

#include "soporte/arbol.h"

#include <gtest/gtest.h>

namespace {

/// Writes down what is said and asked, and answers from a script.
class clsMensajesDoble : public clsMensajes {
public:
    void fAviso(Icono, const std::string &, const std::string &) override { strDicho += 'a'; }
    bool fSiNo(const std::string &) override
    {
        strDicho += '?';
        return fSiguiente() == "sí";
    }
    bool fAceptarCancelar(const std::string &) override { return false; }
    std::optional<std::string> fPedir(const std::string &) override { return {}; }
    std::string fElegirCarpeta(const std::string &, const std::string &) override
    {
        strDicho += 'c';
        return fSiguiente();
    }

    std::vector<std::string> lstRespuestas; ///< afterwards Cancel and No
    std::string strDicho; ///< a letter each: a notice, a question, the choice of a folder

private:
    std::string fSiguiente()
    {
        return m_lngSiguiente < lstRespuestas.size() ? lstRespuestas[m_lngSiguiente++] : "";
    }
    std::size_t m_lngSiguiente = 0;
};

struct clsCaso {
    const char *strFrase;
    std::vector<std::string> lstArgumentos;
    bool bolPreguntar;
    const char *strUltima;                  ///< below the tree; nullptr: none
    std::vector<std::string> lstRespuestas; ///< folders below the tree
    std::optional<std::string> raiz;        ///< below the tree
    const char *strDicho;
};

void fComprobar(const clsArbol &arbol, const clsCaso &caso)
{
    SCOPED_TRACE(caso.strFrase);
    clsAjustes escritorio(arbol.fRuta("escritorio.ini"), true);
    fRecordarRaiz(escritorio, caso.strUltima == nullptr ? "" : arbol.fRuta(caso.strUltima));
    const auto fEnArbol = [&](std::string strTexto) {
        return strTexto.starts_with('=') ? arbol.fRuta(strTexto.substr(1)) : strTexto;
    };
    clsMensajesDoble mensajes;
    for (const std::string &strRespuesta : caso.lstRespuestas) {
        mensajes.lstRespuestas.push_back(fEnArbol(strRespuesta));
    }
    const auto raiz = fElegirRaiz({caso.lstArgumentos, arbol.fRuta("programa"), arbol.fRaiz(),
                                   arbol.fRuta("casa/"), caso.bolPreguntar},
                                  escritorio, mensajes);
    EXPECT_EQ(raiz, caso.raiz ? std::optional(fEnArbol(*caso.raiz)) : std::nullopt);
    EXPECT_EQ(mensajes.strDicho, caso.strDicho);
}

TEST(Raiz, IsThatOfLastTimeOrChosenAndTheWholeHomeOnlyAfterAQuestion)
{
    const clsArbol arbol;
    for (const char *const strCarpeta : {"casa/fotos", "programa", "otra"}) {
        arbol.fCarpeta(strCarpeta);
    }
    arbol.fEnlace("atajo", arbol.fRuta("casa"));
    const clsCaso lstCasos[] = {
        {"one file in its archive", {}, false, "otra/", {}, "=programa/", ""},
        {"a folder is given", {"___otra"}, true, nullptr, {}, "=otra/", ""},
        {"one that is not there", {"___nada"}, false, nullptr, {}, "=nada/", ""},
        {"that of last time", {}, true, "otra/", {}, "=otra/", ""},
        {"none yet: chosen", {}, true, nullptr, {"=otra"}, "=otra/", "c"},
        {"that of last time is gone", {}, true, "nada/", {"=otra"}, "=otra/", "ac"},
        {"none chosen", {}, true, nullptr, {}, {}, "c"},
        {"below the home folder", {"___casa/fotos"}, false, nullptr, {}, "=casa/fotos/", ""},
        {"home, refused", {"___casa"}, false, nullptr, {}, {}, "?"},
        {"home, wanted", {"___casa"}, false, nullptr, {"sí"}, "=casa/", "?"},
        {"home by another name", {"___atajo"}, false, nullptr, {}, {}, "?"},
        {"the file system", {"___/"}, false, nullptr, {}, {}, "?"},
        {"by a detour", {"___/usr/.."}, false, nullptr, {"sí"}, "/usr/../", "?"},
        {"home chosen, then another", {}, true, nullptr, {"=casa", "", "=otra"}, "=otra/", "c?c"},
        {"home of last time", {}, true, "casa/", {"no", "=otra"}, "=otra/", "?c"},
    };
    for (const clsCaso &caso : lstCasos) {
        fComprobar(arbol, caso);
    }
    arbol.fCrear("casa/Miravel.dat");
    fComprobar(arbol,
               {"home is an archive already", {"___casa"}, false, nullptr, {}, "=casa/", ""});
}

TEST(Raiz, IsRememberedByteByByteOrNotAtAll)
{
    const clsArbol arbol;
    clsAjustes escritorio(arbol.fRuta("escritorio.ini"), true);
    const std::string lstNombres[] = {" \"Ñu\" \xFF ='1' ;", "de antes"};
    for (const std::string &strNombre : lstNombres) {
        arbol.fCarpeta(strNombre);
        fRecordarRaiz(escritorio, arbol.fRuta(strNombre + "/"));
        clsMensajesDoble mensajes;
        EXPECT_EQ(fElegirRaiz({{}, "/p", "/t", "/c", true}, escritorio, mensajes),
                  arbol.fRuta(strNombre + "/"));
    }
    fRecordarRaiz(escritorio, arbol.fRuta("dos\nlineas/")); // would change the file's other lines
    clsMensajesDoble mensajes;
    EXPECT_EQ(fElegirRaiz({{}, "/p", "/t", "/c", true}, escritorio, mensajes),
              arbol.fRuta("de antes/"));
}

} // namespace
