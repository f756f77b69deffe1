#include "dates/formulario_fecha.h"

#include "soporte/arbol.h"

#include <gtest/gtest.h>

namespace {

clsFile fFichero(const clsArbol &arbol, const std::string &strNombre, const std::string &strFecha)
{
    const auto fecha = fLeerFecha(strFecha);
    arbol.fCrear(strNombre, "no picture", fMomento(fecha.value()).value());
    clsFile fichero;
    fichero.fCargar(arbol.fRuta(strNombre));
    return fichero;
}

} // namespace

TEST(FormularioFecha, TellsOneFileByItsDateAndSeveralByTheirNumber)
{
    const clsArbol arbol;
    const clsFile bien = fFichero(arbol, "20090714_a.jpg", "2009/07/14 18:03:22");
    const clsFile mal = fFichero(arbol, "20090714_b.jpg", "2012/03/04 18:20:00");
    const clsFile sinFecha = fFichero(arbol, "c.jpg", "2012/03/04 18:20:00");

    const clsFormularioFecha deBien = fFormularioFecha({bien});
    EXPECT_EQ(deBien.strActual, "14/07/2009 18:03:22");
    EXPECT_EQ(deBien.fondo, (clsColor{128, 255, 128}));
    EXPECT_EQ(deBien.lstFechas[0], "") << "no EXIF";
    EXPECT_EQ(deBien.lstFechas[1], "14/07/2009 12:00:00") << "the day of the name, at noon";
    EXPECT_EQ(deBien.lstFechas[2], "20/09/0714 12:00:00") << "the same digits day first";

    EXPECT_EQ(fFormularioFecha({mal}).fondo, (clsColor{255, 128, 128}));

    const clsFormularioFecha deVarios = fFormularioFecha({bien, mal, sinFecha});
    EXPECT_EQ(deVarios.strActual, "(3 FICHEROS)");
    EXPECT_EQ(deVarios.fondo, (clsColor{255, 255, 128}));
    EXPECT_EQ(deVarios.lstFechas[1], "14/07/2009 12:00:00") << "the last one that has a date";
}

TEST(FormularioFecha, OpensForWrongFilesOnlyUnlessAskedTo)
{
    const clsArbol arbol;
    const clsFile bien = fFichero(arbol, "20090714_a.jpg", "2009/07/14 18:03:22");
    const clsFile mal = fFichero(arbol, "20090714_b.jpg", "2012/03/04 18:20:00");
    EXPECT_TRUE(fSeCorrige({mal, mal}, false));
    EXPECT_FALSE(fSeCorrige({mal, bien, mal}, false)) << "one right file is enough to refuse";
    EXPECT_TRUE(fSeCorrige({mal, bien, mal}, true));
}
