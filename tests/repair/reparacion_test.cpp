#include "repair/reparacion.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

clsFecha fDia(const char *strFecha) { return fLeerFecha(strFecha, strFormaDia).value(); }

/// A file of 2020 with its sources.
clsFechasFichero fConFuentes(clsFuentes lstFuentes, bool bolCorrecta = false)
{
    return {true, fDia("01/01/2020"), bolCorrecta, std::move(lstFuentes)};
}

clsFuentes fExif(const char *strFecha)
{
    return {fLeerFechaIso(strFecha, Fuente::ExifTomada).value()};
}

clsFuentes fConNombre(const char *strFecha)
{
    return {fLeerFechaIso(strFecha, Fuente::Nombre).value()};
}

/// Places texts by their bytes.
std::vector<std::uint32_t> fPorBytes(const std::vector<std::string_view> &lstTextos)
{
    std::vector<std::string_view> lstOrden = lstTextos;
    std::sort(lstOrden.begin(), lstOrden.end());
    std::vector<std::uint32_t> lstRangos;
    for (const std::string_view strTexto : lstTextos) {
        lstRangos.push_back(static_cast<std::uint32_t>(
            std::lower_bound(lstOrden.begin(), lstOrden.end(), strTexto) - lstOrden.begin()));
    }
    return lstRangos;
}

/// Two that are sure, one that is doubtful, one that nothing is known of.
clsTablaReparacion fTabla()
{
    clsTablaReparacion tabla("/fotos/", fDia("22/11/2026"));
    tabla.fAgregar("/fotos/2009/b.jpg", fConFuentes(fExif("2009-07-14T18:03:22")));
    tabla.fAgregar("/fotos/2009/20090715.jpg", fConFuentes(fConNombre("2009-07-15")));
    tabla.fAgregar("/fotos/c.jpg", fConFuentes(fExif("2109-07-14T18:03:22")));
    tabla.fAgregar("/fotos/a.jpg", fConFuentes({}));
    return tabla;
}

/// The numbers of the rows that are shown.
std::string fVista(const clsTablaReparacion &tabla)
{
    std::string strTexto;
    for (int lngPos = 0; lngPos < tabla.fCantidad(); ++lngPos) {
        strTexto += std::to_string(tabla.fFila(lngPos));
    }
    return strTexto;
}

std::string fReparadosDe(const clsTablaReparacion &tabla)
{
    std::string strTexto;
    for (const clsReparado &uno : tabla.fReparados()) {
        strTexto += uno.strRuta + " > " + uno.strRutaNueva + " " +
                    fEscribirFecha(uno.fecha, strFormaUsuario) + "\n";
    }
    return strTexto;
}

} // namespace

TEST(Cuentas, SayHowManyFilesHaveWhichProposal)
{
    EXPECT_EQ(fTextoCuentas(
                  {.intFicheros = 3214, .intExif = 2950, .intNombre = 210, .intSinPropuesta = 54}),
              "3.214 archivos: 2.950 por EXIF, 210 por el nombre, 54 sin propuesta");
    EXPECT_EQ(fTextoCuentas({}), "0 archivos");
    EXPECT_EQ(fTextoCuentas({.intFicheros = 1, .intSinPropuesta = 1}),
              "1 archivo: 1 sin propuesta");
    EXPECT_EQ(fTextoCuentas({8, 1, 1, 1, 1, 1, 0, 1, 1, 1, 0}),
              "8 archivos: 1 por EXIF, 1 por el vídeo, 1 por XMP, 1 por IPTC, 1 por GPS, "
              "1 por la carpeta, 1 a mano, 1 sin propuesta");
}

TEST(Desfase, MovesADateByTheClockOnTheWall)
{
    EXPECT_EQ((clsDesfase{1, -2, 3, -4}.fSegundos()), 86400 - 7200 + 180 - 4);
    EXPECT_EQ((clsDesfase{INT_MAX, INT_MAX, INT_MAX, INT_MAX}.fSegundos()),
              std::int64_t{INT_MAX} * (86400 + 3600 + 60 + 1));
    const clsFecha datFinal = fLeerFecha("9999/12/31 23:59:59").value();
    EXPECT_EQ(fDesplazar(datFinal, -86400), fLeerFecha("9999/12/30 23:59:59"));
    EXPECT_EQ(fDesplazar(datFinal, 1), std::nullopt);
    EXPECT_EQ(fDesplazar(fDia("01/01/0100"), -1), std::nullopt);
    EXPECT_EQ(fDesplazar(fDia("14/07/2009"), INT64_MAX), std::nullopt);
    EXPECT_EQ(fDesplazar(fDia("14/07/2009"), INT64_MIN), std::nullopt);
    EXPECT_EQ(fDesplazar({}, 3600), std::nullopt) << "no date";
    EXPECT_EQ(fDesplazar({3600}, -3600), std::nullopt) << "would be no date";
}

TEST(NombreReparado, PutsTheDayBeforeTheNameOnce)
{
    const struct {
        const char *strRuta;
        const char *strNueva;
    } lstCasos[] = {
        {"/f/IMG_1.jpg", "/f/20090714_IMG_1.jpg"},
        {"/f/20090714_IMG_1.jpg", "/f/20090714_IMG_1.jpg"},
        {"/f/20090714.jpg", "/f/20090714.jpg"},
        {"/f/20090714183022.jpg", "/f/20090714183022.jpg"},
        {"/f/2009-07-14 Playa.jpg", "/f/2009-07-14 Playa.jpg"},
        {"/f/14-07-2009 Playa.jpg", "/f/14-07-2009 Playa.jpg"},
        {"/f/20090715_IMG_1.jpg", "/f/20090714_20090715_IMG_1.jpg"},
        {"/f/IMG_20090714.jpg", "/f/20090714_IMG_20090714.jpg"},
        {"/f/200907141.jpg", "/f/20090714_200907141.jpg"},
        {"/20090714/a.jpg", "/20090714/20090714_a.jpg"},
    };
    for (const auto &caso : lstCasos) {
        const clsFecha fecha = fLeerFecha("2009/07/14 23:59:59").value();
        EXPECT_EQ(fRutaReparada(caso.strRuta, fecha, NombreReparado::AnteponerFecha),
                  caso.strNueva);
        EXPECT_EQ(fRutaReparada(caso.strRuta, fecha, NombreReparado::SinCambio), caso.strRuta);
    }
}

TEST(TablaReparacion, ShowsWhatIsProposedAndTicksWhatIsSure)
{
    const clsTablaReparacion tabla = fTabla();
    const char *const lstTextos[][intColumnasReparacion] = {
        {"", "b.jpg", "2009", "01/01/2020 00:00:00", "14/07/2009 18:03:22", "EXIF (tomada)",
         "20090714_b.jpg", ""},
        {"", "20090715.jpg", "2009", "01/01/2020 00:00:00", "15/07/2009 12:00:00", "nombre",
         "20090715.jpg", ""},
        {"", "c.jpg", "", "01/01/2020 00:00:00", "14/07/2109 18:03:22", "EXIF (tomada)",
         "21090714_c.jpg", "En el futuro"},
        {"", "a.jpg", "", "01/01/2020 00:00:00", "", "", "", "No se conoce otra fecha"},
    };
    for (int lngFila = 0; lngFila < tabla.fFilas(); ++lngFila) {
        for (int intColumna = 0; intColumna < intColumnasReparacion; ++intColumna) {
            EXPECT_EQ(tabla.fTexto(lngFila, static_cast<ColumnaReparacion>(intColumna)),
                      lstTextos[lngFila][intColumna]);
        }
        EXPECT_EQ(tabla.fMarcada(lngFila), lngFila < 2);
    }
    EXPECT_EQ(fTextoCuentas(tabla.fCuentas()),
              "4 archivos: 2 por EXIF, 1 por el nombre, 1 sin propuesta");
    EXPECT_EQ(tabla.fCuentas().intMarcados, 2);
    EXPECT_EQ(fReparadosDe(tabla),
              "/fotos/2009/b.jpg > /fotos/2009/20090714_b.jpg 14/07/2009 18:03:22\n"
              "/fotos/2009/20090715.jpg > /fotos/2009/20090715.jpg 15/07/2009 12:00:00\n");
}

TEST(TablaReparacion, FiltersAndOrders)
{
    clsTablaReparacion tabla = fTabla();
    const struct {
        VistaReparacion vista;
        const char *strFilas;
    } lstVistas[] = {
        {VistaReparacion::ConPropuesta, "012"},
        {VistaReparacion::Dudosas, "2"},
        {VistaReparacion::SinPropuesta, "3"},
        {VistaReparacion::Todas, "0123"},
    };
    for (const auto &caso : lstVistas) {
        tabla.fMostrar(caso.vista);
        EXPECT_EQ(fVista(tabla), caso.strFilas);
    }
    const struct {
        ColumnaReparacion columna;
        bool bolDescendente;
        const char *strFilas;
    } lstOrdenes[] = {
        {ColumnaReparacion::Nombre, false, "1302"}, {ColumnaReparacion::Nombre, true, "2031"},
        {ColumnaReparacion::Carpeta, true, "0123"}, // 0 and 1 stay as they were
        {ColumnaReparacion::Actual, true, "0123"},  {ColumnaReparacion::Nueva, false, "3012"},
        {ColumnaReparacion::Fuente, false, "3021"}, {ColumnaReparacion::NombreNuevo, true, "2103"},
        {ColumnaReparacion::Reparo, true, "3201"},  {ColumnaReparacion::Marca, true, "2301"},
    };
    for (const auto &caso : lstOrdenes) {
        tabla.fMostrar(VistaReparacion::Todas);
        tabla.fOrdenar(caso.columna, caso.bolDescendente, fPorBytes);
        EXPECT_EQ(fVista(tabla), caso.strFilas) << static_cast<int>(caso.columna);
    }
    tabla.fOrdenar(ColumnaReparacion::Nombre, false, fPorBytes);
    EXPECT_EQ(tabla.fPosicion(3), 1);
    tabla.fMostrar(VistaReparacion::Dudosas);
    EXPECT_EQ(tabla.fPosicion(3), -1);
}

TEST(TablaReparacion, MarksWhatIsShown)
{
    clsTablaReparacion tabla = fTabla();
    tabla.fMostrar(VistaReparacion::Dudosas);
    tabla.fMarcarVista(true);
    EXPECT_TRUE(tabla.fMarcada(2));
    tabla.fMostrar(VistaReparacion::Todas);
    tabla.fMarcarVista(false);
    EXPECT_EQ(tabla.fCuentas().intMarcados, 0);
    EXPECT_EQ(fReparadosDe(tabla), "");
}

TEST(TablaReparacion, TakesTheUsersDatesForTheTickedRows)
{
    clsTablaReparacion tabla = fTabla();
    tabla.fMarcar(3, true);
    EXPECT_EQ(fReparadosDe(tabla).find("a.jpg"), std::string::npos) << "ticked, without a date";
    EXPECT_EQ(tabla.fFuentesMarcadas(), (std::vector{Fuente::ExifTomada, Fuente::Nombre}));

    EXPECT_EQ(tabla.fDesplazar(-90061), 3);
    EXPECT_EQ(tabla.fTexto(0, ColumnaReparacion::Nueva), "13/07/2009 17:02:21");
    EXPECT_EQ(tabla.fTexto(0, ColumnaReparacion::Fuente), "EXIF (tomada) -1 d 01:01:01");
    EXPECT_EQ(tabla.fTexto(3, ColumnaReparacion::Nueva), "30/12/2019 22:58:59")
        << "by its own time";
    EXPECT_EQ(tabla.fTexto(2, ColumnaReparacion::Nueva), "14/07/2109 18:03:22") << "not ticked";
    EXPECT_EQ(tabla.fTramo().datPrimera, fLeerFecha("2009/07/13 17:02:21"));
    EXPECT_EQ(tabla.fTramo().datUltima, fLeerFecha("2019/12/30 22:58:59"));
    EXPECT_EQ(tabla.fTramo(3600).datPrimera, fLeerFecha("2009/07/14 19:03:22"))
        << "instead of that";
    EXPECT_EQ(tabla.fDesplazar(3600), 3);
    EXPECT_EQ(tabla.fTexto(0, ColumnaReparacion::Fuente), "EXIF (tomada) +01:00:00");
    EXPECT_EQ(tabla.fDesplazar(0), 3);
    EXPECT_EQ(tabla.fTexto(3, ColumnaReparacion::Nueva), "");

    EXPECT_EQ(tabla.fElegirFuente(Fuente::Nombre), 1);
    EXPECT_EQ(tabla.fFechar(fDia("01/05/2001")), 3);
    EXPECT_EQ(fTextoCuentas(tabla.fCuentas()), "4 archivos: 1 por EXIF, 3 a mano");
    EXPECT_EQ(tabla.fRestaurar(), 3);
    EXPECT_EQ(tabla.fTexto(0, ColumnaReparacion::Nueva), "14/07/2009 18:03:22");
}

TEST(TablaReparacion, TellsHowManyCanBeCorrectedWhileRowsAreAdded)
{
    constexpr int intFilas = 20;
    clsTablaReparacion tabla("/f/", fDia("22/11/2026"));
    const auto fAgregar = [&](int intNombre) {
        tabla.fAgregar("/f/" + std::to_string(intNombre) + ".jpg",
                       fConFuentes(fExif("2009-07-14T18:03:22")));
    };
    for (int intFila = 0; intFila < intFilas; ++intFila) {
        fAgregar(intFila);
        EXPECT_EQ(tabla.fChoque(0), Choque::Ninguno);
        EXPECT_EQ(tabla.fReparables(), intFila + 1);
    }
    fAgregar(0);
    EXPECT_EQ(tabla.fReparables(), intFilas - 1) << "neither of the two";
    EXPECT_EQ(tabla.fReparados().size(), std::size_t{intFilas - 1});
    EXPECT_EQ(tabla.fChoque(0), Choque::Repetido);
    tabla.fMarcar(intFilas, false);
    for (const bool bolExiste : {true, false}) { // the last answer counts
        tabla.fComprobado({{"/f/20090714_0.jpg", bolExiste}});
        EXPECT_EQ(tabla.fChoque(0), bolExiste ? Choque::Existe : Choque::Ninguno);
        EXPECT_EQ(tabla.fPorComprobar().size(), std::size_t{intFilas - 1});
    }
    EXPECT_EQ(tabla.fReparables(), intFilas);
}

TEST(TablaReparacion, LeavesOutNamesThatCannotBe)
{
    clsTablaReparacion tabla("/f/", fDia("22/11/2026"));
    tabla.fAgregar("/f/a.jpg", fConFuentes(fExif("2009-07-14T18:03:22")));
    tabla.fAgregar("/f/20090714_a.jpg", fConFuentes({}));
    tabla.fAgregar("/f/b.jpg", fConFuentes(fExif("2009-07-14T18:03:22")));
    tabla.fAgregar("/f/c.jpg", fConFuentes(fExif("2009-07-14T18:03:22")));
    tabla.fAgregar("/f/c.jpg", fConFuentes(fExif("2009-07-14T18:03:22")));
    const auto fReparo = [&](int lngFila) {
        return tabla.fTexto(lngFila, ColumnaReparacion::Reparo);
    };
    EXPECT_EQ(fReparo(0), "Ya hay un archivo con el nombre nuevo") << "another row has it";
    EXPECT_EQ(fReparo(2), "");
    EXPECT_EQ(fReparo(3), "Otro archivo tendría el mismo nombre");
    EXPECT_EQ(fReparo(4), "Otro archivo tendría el mismo nombre");
    EXPECT_EQ(
        tabla.fPorComprobar(),
        (std::vector<std::string>{"/f/20090714_b.jpg", "/f/20090714_c.jpg", "/f/20090714_c.jpg"}));
    EXPECT_EQ(tabla.fReparados().size(), 1U);

    tabla.fComprobado({{"/f/20090714_b.jpg", true}, {"/f/20090714_c.jpg", false}});
    EXPECT_EQ(fReparo(2), "Ya hay un archivo con el nombre nuevo");
    EXPECT_TRUE(tabla.fPorComprobar().empty());
    EXPECT_TRUE(tabla.fReparados().empty());

    tabla.fMarcar(4, false);
    EXPECT_EQ(fReparo(3), "") << "nobody else wants it now";
    tabla.fNombres(NombreReparado::SinCambio);
    EXPECT_EQ(tabla.fReparados().size(), 3U) << "names that stay run into nothing";
    tabla.fNombres(NombreReparado::AnteponerFecha);
    EXPECT_EQ(tabla.fReparados().size(), 1U);
    tabla.fMarcar(4, true);
    EXPECT_EQ(fReparo(3), "Otro archivo tendría el mismo nombre");
    tabla.fFechar(fDia("01/05/2001"));
    EXPECT_EQ(fReparo(0), "") << "the name is another one now";
}
