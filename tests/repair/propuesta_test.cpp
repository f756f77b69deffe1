#include "repair/propuesta.h"

#include "dates/fecha_texto.h"
#include "soporte/arbol.h"

#include <gtest/gtest.h>

namespace {

clsFecha fDe(const std::string &strFecha)
{
    return fLeerFecha(strFecha, strFormaUsuario).value_or(clsFecha{});
}

const clsFecha datHoy = fDe("22/11/2026 10:00:00");

/// A source by its date as ISO 8601 has it.
clsFechaFuente fUna(Fuente fuente, const char *strFecha)
{
    return fLeerFechaIso(strFecha, fuente).value();
}

clsFechasFichero fFichero(const char *strArchivo, clsFuentes lstFuentes, bool bolCorrecta = false)
{
    return {true, fDe(strArchivo), bolCorrecta, std::move(lstFuentes)};
}

/// "new date source", then "dudosa" or "marcada", then the remark.
std::string fJuicio(const clsFechasFichero &fechas)
{
    const clsPropuesta propuesta = fProponer(fechas, datHoy);
    std::string strTexto = propuesta.fHay() ? fEscribirFecha(propuesta.fecha, strFormaUsuario) +
                                                  ' ' + std::string(fTextoFuente(propuesta.fuente))
                                            : "nada";
    strTexto += propuesta.fDudosa() ? ", dudosa" : propuesta.fMarcada() ? ", marcada" : "";
    const std::string strReparo = fTextoReparo(propuesta, fechas.lstFuentes);
    return strTexto + (strReparo.empty() ? "" : "; " + strReparo);
}

} // namespace

TEST(Propuesta, TakesTheBestSourceAndSaysWhy)
{
    const clsZona zona("Europe/Madrid");
    const auto tomada = fUna(Fuente::ExifTomada, "2009-07-14T18:03:22");
    const auto digital = fUna(Fuente::ExifDigitalizada, "2009-07-14T18:03:25");
    const auto cambiada = fUna(Fuente::ExifCambiada, "2012-05-01T10:00:00");
    const auto gps = fUna(Fuente::Gps, "2009-07-14T16:03:00Z");
    const auto gpsLejos = fUna(Fuente::Gps, "2009-07-15T23:30:00Z");
    const auto xmp = fUna(Fuente::Xmp, "2009-07-14T18:03:22");
    const auto iptc = fUna(Fuente::Iptc, "2009-07-14");
    const auto video = fUna(Fuente::Video, "2009-07-14T22:30:00Z");
    const auto nombre = fUna(Fuente::Nombre, "2009-07-14");
    const auto nombreHora = fUna(Fuente::Nombre, "2009-07-14T18:03:40");
    const auto otroNombre = fUna(Fuente::Nombre, "2008-05-08");
    const auto carpeta = fUna(Fuente::Carpeta, "2009-07-14");
    const auto otraCarpeta = fUna(Fuente::Carpeta, "2009-07-12");
    const auto vispera = fUna(Fuente::Carpeta, "2009-07-13");
    const struct {
        const char *strFrase;
        clsFechasFichero fechas;
        const char *strJuicio;
    } lstCasos[] = {
        {"EXIF alone", fFichero("01/01/2020 10:00:00", {tomada}),
         "14/07/2009 18:03:22 EXIF (tomada), marcada"},
        {"EXIF before all others",
         fFichero("01/01/2020 10:00:00", {digital, tomada, xmp, nombreHora}),
         "14/07/2009 18:03:22 EXIF (tomada), marcada; Coincide con XMP"},
        {"digitised where it was not taken", fFichero("01/01/2020 10:00:00", {digital, nombre}),
         "14/07/2009 18:03:25 EXIF (digitalizada), marcada; Coincide con el nombre"},
        {"who worked on it later does not contradict",
         fFichero("01/01/2020 10:00:00", {tomada, cambiada}),
         "14/07/2009 18:03:22 EXIF (tomada), marcada"},
        {"tags of one hand do not confirm each other",
         fFichero("01/01/2020 10:00:00", {tomada, digital}),
         "14/07/2009 18:03:22 EXIF (tomada), marcada"},
        {"EXIF changed is better than a day", fFichero("01/01/2020 10:00:00", {cambiada}),
         "01/05/2012 10:00:00 EXIF (modificada), marcada"},
        {"of the rest, what is confirmed",
         fFichero("01/01/2020 10:00:00", {cambiada, nombre, carpeta}),
         "14/07/2009 12:00:00 nombre, dudosa; EXIF (modificada) dice 01/05/2012 10:00:00"},
        {"but never before when it was taken",
         fFichero("01/01/2020 10:00:00", {tomada, otroNombre, fUna(Fuente::Carpeta, "2008-05-08")}),
         "14/07/2009 18:03:22 EXIF (tomada), dudosa; El nombre dice 08/05/2008"},
        {"a time of day before a day", fFichero("01/01/2020 10:00:00", {iptc, gps, carpeta}),
         "14/07/2009 18:03:00 GPS, marcada; Coincide con IPTC"},
        {"the name's own time of day", fFichero("01/01/2020 10:00:00", {nombreHora}),
         "14/07/2009 18:03:40 nombre, marcada"},
        {"two dates in a name: the one with a time",
         fFichero("01/01/2020 10:00:00", {otroNombre, nombreHora}),
         "14/07/2009 18:03:40 nombre, dudosa; El nombre dice 08/05/2008"},
        {"a name's day at noon", fFichero("01/01/2020 10:00:00", {nombre}),
         "14/07/2009 12:00:00 nombre, marcada"},
        {"a folder's day at noon", fFichero("01/01/2020 10:00:00", {carpeta}),
         "14/07/2009 12:00:00 carpeta, marcada"},
        {"universal time by the clock of its date",
         fFichero("01/01/2020 10:00:00", {video, nombre}), "15/07/2009 00:30:00 vídeo, marcada"},
        {"less than a day apart", fFichero("01/01/2020 10:00:00", {tomada, gpsLejos}),
         "14/07/2009 18:03:22 EXIF (tomada), dudosa; GPS dice 16/07/2009 01:30:00"},
        {"days that are neighbours", fFichero("01/01/2020 10:00:00", {tomada, vispera}),
         "14/07/2009 18:03:22 EXIF (tomada), marcada"},
        {"days that are none", fFichero("01/01/2020 10:00:00", {tomada, otraCarpeta}),
         "14/07/2009 18:03:22 EXIF (tomada), dudosa; La carpeta dice 12/07/2009"},
        {"nothing known", fFichero("01/01/2020 10:00:00", {}), "nada; No se conoce otra fecha"},
        {"no file", {}, "nada; No existe"},
        {"an hour off counts as right", fFichero("14/07/2009 19:03:59", {tomada, otroNombre}),
         "nada; La fecha actual coincide"},
        {"a minute more does not", fFichero("14/07/2009 19:04:00", {tomada}),
         "14/07/2009 18:03:22 EXIF (tomada), marcada"},
        {"a day is a day", fFichero("14/07/2009 23:59:59", {nombre}),
         "nada; La fecha actual coincide"},
        {"right, but there is better", fFichero("14/07/2009 12:00:00", {tomada, nombre}, true),
         "14/07/2009 18:03:22 EXIF (tomada); La fecha actual se da por correcta"},
        {"right by a wrong name", fFichero("08/05/2008 12:00:00", {tomada, otroNombre}, true),
         "14/07/2009 18:03:22 EXIF (tomada), dudosa; El nombre dice 08/05/2008"},
        {"before 1970",
         fFichero("01/01/2020 10:00:00", {fUna(Fuente::Nombre, "1969-12-31T23:59:59")}),
         "31/12/1969 23:59:59 nombre, dudosa; Anterior a 1970"},
        {"1970", fFichero("01/01/2020 10:00:00", {fUna(Fuente::Nombre, "1970-01-01T00:00:00")}),
         "01/01/1970 00:00:00 nombre, marcada"},
        {"now", fFichero("01/01/2020 10:00:00", {fUna(Fuente::ExifTomada, "2026-11-22T10:00:00")}),
         "22/11/2026 10:00:00 EXIF (tomada), marcada"},
        {"in the future",
         fFichero("01/01/2020 10:00:00", {fUna(Fuente::ExifTomada, "2026-11-22T10:00:01")}),
         "22/11/2026 10:00:01 EXIF (tomada), dudosa; En el futuro"},
    };
    for (const auto &caso : lstCasos) {
        EXPECT_EQ(fJuicio(caso.fechas), caso.strJuicio) << caso.strFrase;
    }
}

TEST(Propuesta, ComparesMomentsWhereTheZonesAreKnown)
{
    const clsZona zona("Europe/Madrid");
    // Taken in New York: the wall's clock there is what counts, the satellites agree with it.
    const auto fechas =
        fFichero("01/01/2020 10:00:00", {fUna(Fuente::ExifTomada, "2009-07-14T23:30:00-04:00"),
                                         fUna(Fuente::Gps, "2009-07-15T03:30:10Z")});
    EXPECT_EQ(fJuicio(fechas), "14/07/2009 23:30:00 EXIF (tomada), marcada; Coincide con GPS");
}

TEST(Propuesta, TakesADayOfExifAsTheVerdictDoes)
{
    auto fechas = fFichero("14/07/2009 12:00:00", {fUna(Fuente::ExifTomada, "2009-07-14")});
    fechas.lstFuentes[0].fecha = fDe("14/07/2009 00:00:00");
    EXPECT_EQ(fJuicio(fechas), "14/07/2009 00:00:00 EXIF (tomada), marcada");
    fechas.datArchivo = fDe("14/07/2009 01:00:00");
    EXPECT_EQ(fJuicio(fechas), "nada; La fecha actual coincide");
}

TEST(Propuesta, DoubtsWhatTheUserTypesOnlyByItsLimits)
{
    EXPECT_FALSE(fProponerManual(fDe("14/07/2009 00:00:00"), Fuente::Tecleada, datHoy).fDudosa());
    EXPECT_TRUE(fProponerManual(fDe("14/07/1909 00:00:00"), Fuente::Tecleada, datHoy).fDudosa());
    EXPECT_TRUE(fProponerManual(fDe("14/07/2109 00:00:00"), Fuente::Tecleada, datHoy).fDudosa());
}
