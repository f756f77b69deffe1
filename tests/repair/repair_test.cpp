// Texts and counts of the windows that repair and review dates.
#include "repair/resumen.h"
#include "repair/textos_reparar.h"

#include <gtest/gtest.h>

namespace {

clsFecha fDe(const char *strFecha) { return fLeerFecha(strFecha).value_or(clsFecha{}); }

clsFechasFichero fFichero(const char *strArchivo, bool bolCorrecta, bool bolFuente)
{
    clsFechasFichero fechas{true, fDe(strArchivo), bolCorrecta, {}};
    if (bolFuente) {
        fechas.lstFuentes.push_back({fDe("2009/07/14 18:03:22"), Fuente::ExifTomada});
    }
    return fechas;
}

} // namespace

TEST(Reparar, TellsEveryDateOfAFile)
{
    clsFechasFichero fechas = fFichero("2020/01/01 00:00:00", false, true);
    fechas.lstFuentes.push_back(
        {fDe("2009/07/15 12:00:00"), Fuente::Carpeta, Precision::Dia, Zona::Local});
    EXPECT_EQ(fTextoFuentes(fechas), "EXIF (tomada): 14/07/2009 18:03:22\ncarpeta: 15/07/2009");
    EXPECT_EQ(fTextoFuentes({}), "");
}

TEST(Reparar, AsksBeforeItChangesFiles)
{
    EXPECT_EQ(fPreguntaCorregir(1, NombreReparado::SinCambio),
              "Se va a cambiar la fecha de 1 archivo.\r\nSe puede deshacer después.");
    EXPECT_EQ(fPreguntaCorregir(3160, NombreReparado::AnteponerFecha),
              "Se va a cambiar la fecha y el nombre de 3.160 archivos.\r\n"
              "Se puede deshacer después.");
    const clsCorreccionHecha hecha{fDe("2026/11/22 10:00:12"), 3160, {}};
    EXPECT_EQ(fPreguntaDeshacer({hecha}), "Correcciones que se pueden deshacer:\r\n"
                                          "22/11/2026 10:00:12: 3.160 archivos\r\n\r\n"
                                          "Se deshará la última.");
    const std::string strMuchas = fPreguntaDeshacer(std::vector<clsCorreccionHecha>(12, hecha));
    EXPECT_NE(strMuchas.find("\r\n... y 2 más.\r\n"), std::string::npos);
}

TEST(Resumen, CountsByYearAndState)
{
    clsResumenFechas resumen;
    EXPECT_EQ(resumen.fMayor(), 0);
    resumen.fAgregar("b", fFichero("2012/01/01 00:00:00", false, true));
    resumen.fAgregar("a", fFichero("2009/07/14 18:03:22", true, true));
    resumen.fAgregar("c", fFichero("2012/12/31 23:59:59", false, false));
    resumen.fAgregar("d", {}); // it is not there
    ASSERT_EQ(resumen.fAnos().size(), 3U);
    EXPECT_EQ(resumen.fAnos()[0].intAno, 0);
    EXPECT_EQ(resumen.fAnos()[1].fCuantos(EstadoFecha::Correcta), 1);
    const clsAnoResumen &doce = resumen.fAnos()[2];
    EXPECT_EQ(doce.intAno, 2012);
    EXPECT_EQ(doce.lstRutas[static_cast<std::size_t>(EstadoFecha::Incorrecta)].front(), "b");
    EXPECT_EQ(doce.fCuantos(EstadoFecha::SinFecha), 1);
    EXPECT_EQ(resumen.fMayor(), 2);
    EXPECT_EQ(fTextoResumen(resumen),
              "4 archivos: 1 con la fecha correcta, 1 incorrecta, 2 sin fecha");
}
