#include "browse/ayuda.h"

#include "shared/texto.h"
#include "soporte/arbol.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <vector>

namespace {

/// The lines of the page; every one must end with CR LF.
std::vector<std::string> fLineas(const std::string &strPagina)
{
    std::vector<std::string> lstLineas;
    std::size_t lngInicio = 0;
    for (std::size_t lngFin = 0; (lngFin = strPagina.find("\r\n", lngInicio)) != std::string::npos;
         lngInicio = lngFin + 2) {
        lstLineas.push_back(strPagina.substr(lngInicio, lngFin - lngInicio));
    }
    EXPECT_EQ(lngInicio, strPagina.size());
    return lstLineas;
}

TEST(Ayuda, HasItsSkeletonSectionsAndParagraphs)
{
    const std::string strPagina = fTextoAyuda();
    EXPECT_TRUE(fEsUtf8(strPagina));
    const std::vector<std::string> lstLineas = fLineas(strPagina);
    struct clsSeccion {
        const char *strTitulo;
        int intParrafos;
    };
    const clsSeccion lstSecciones[] = {
        {"MIRAVEL 1.3", 1},    {"Comenzando", 7},
        {"Desplazamiento", 3}, {"Trabajando con los archivos", 3},
        {"Visualización", 1},  {"Baúl", 4},
        {"Filtro", 3},         {"Corregir fechas", 4},
        {"Otras opciones", 5}, {"Teclas de acceso rápido", 1},
    };
    std::vector<std::string> lstEsperadas = {
        "<html><head><title>Ayuda_Miravel</title></head>",
        "<body style='font-family: Arial'><div align='center'><center>",
        "<table border='0' width='500' cellspacing='0' cellpadding='0'><tr><td width='100%'>",
        "<br><br>",
    };
    for (const clsSeccion &seccion : lstSecciones) {
        lstEsperadas.push_back("<b>" + std::string(seccion.strTitulo) + "<br><br></b>");
        lstEsperadas.insert(lstEsperadas.end(), static_cast<std::size_t>(seccion.intParrafos), "P");
    }
    lstEsperadas.emplace_back("</td></tr></table></center></div></body></html>");
    ASSERT_EQ(lstLineas.size(), lstEsperadas.size());
    for (std::size_t lng = 0; lng < lstLineas.size(); ++lng) {
        const std::string &strLinea = lstLineas[lng];
        if (lstEsperadas[lng] != "P") {
            EXPECT_EQ(strLinea, lstEsperadas[lng]);
            continue;
        }
        // A paragraph: text without markup or line breaks, trimmed, and its break.
        ASSERT_TRUE(strLinea.ends_with("<br><br>")) << strLinea;
        const std::string strTexto = strLinea.substr(0, strLinea.size() - 8);
        EXPECT_EQ(strTexto.find_first_of("<>\r\n"), std::string::npos) << strTexto;
        EXPECT_EQ(strTexto, fSinBlancos(strTexto));
        EXPECT_GT(strTexto.size(), 20U);
    }
    for (const char *const strParte :
         {"'&gt;'", "(Miravel.exe;",
          "\r\nEl Miravel es una aplicación de consulta y visualización de imágenes y vídeos. ",
          "\r\n- Fecha: Indica entre qué fechas quieres buscar.<br>"}) {
        EXPECT_NE(strPagina.find(strParte), std::string::npos) << strParte;
    }
}

TEST(Ayuda, IsWrittenAnewEachTime)
{
    const clsArbol arbol;
    arbol.fCrear("Ayuda_Miravel.htm", std::string(100000, 'x'));
    EXPECT_EQ(fRutaAyuda(arbol.fRaiz()), arbol.fRuta("Ayuda_Miravel.htm"));
    for (int intVez = 0; intVez < 2; ++intVez) {
        EXPECT_EQ(fEscribirAyuda(arbol.fRaiz()), 0);
        EXPECT_EQ(arbol.fLeer("Ayuda_Miravel.htm"), fTextoAyuda());
    }
    EXPECT_EQ(arbol.fNombres().size(), 1U);
    EXPECT_EQ(fEscribirAyuda(arbol.fRuta("no/")), ENOENT);
}

} // namespace
