#include "browse/estado.h"

#include "dates/correccion.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

namespace {

using clsPosiciones = std::vector<int>;

/// Ranks that order texts by their bytes.
std::vector<std::uint32_t> fPorBytes(const std::vector<std::string_view> &lstTextos)
{
    std::vector<std::uint32_t> lstRangos;
    lstRangos.reserve(lstTextos.size());
    for (const std::string_view strTexto : lstTextos) {
        lstRangos.push_back(static_cast<std::uint32_t>(
            std::count_if(lstTextos.begin(), lstTextos.end(),
                          [strTexto](std::string_view strOtro) { return strOtro < strTexto; })));
    }
    return lstRangos;
}

void fAgregar(clsFilas &filas)
{
    filas.fAgregarFila("/r/a/c.jpg", "2010/01/01 00:00:00", 3000);
    filas.fAgregarFila("/r/a/a.jpg", "2010/01/02 00:00:00", 2000);
    filas.fAgregarFila("/r/b/b.jpg", "2010/02/01 00:00:00", 1000);
    filas.fAgregarFila("/r/b/d.jpg", "2010/02/02 00:00:00", 4000);
}

/// Four files by date, the third of them (b.jpg) current, the second (a.jpg) ticked.
clsEstado fLleno()
{
    clsEstado estado;
    fAgregar(estado.filas);
    estado.lngActual = 2;
    estado.filas.fMarcar(1, true);
    estado.lngTotalKB = 10;
    estado.intCeldas = 3;
    return estado;
}

/// What the user sees of a state: names, the ticked ones in capitals, the current one in brackets.
std::string fVer(const clsEstado &estado)
{
    std::string strVisto;
    for (int lngPos = 0; lngPos < estado.filas.fCantidad(); ++lngPos) {
        const char chr = estado.filas.fNombre(lngPos)[0];
        const std::string strNombre(
            1, static_cast<char>(estado.filas.fMarcada(lngPos) ? chr - 'a' + 'A' : chr));
        strVisto += lngPos == estado.lngActual ? "[" + strNombre + "]" : strNombre;
    }
    return strVisto;
}

// Operations, each as a window does it.

void fNada(clsEstado & /*estado*/) {}
void fPorNombre(clsEstado &estado)
{
    fElegirColumna(estado, Columna::Nombre);
    fOrdenarFilas(estado, fPorBytes);
}
void fPorFecha(clsEstado &estado)
{
    fElegirColumna(estado, Columna::Fecha);
    fOrdenarFilas(estado, fPorBytes);
}
void fPorFechaYTamano(clsEstado &estado)
{
    fPorFecha(estado);
    fElegirColumna(estado, Columna::Tamano);
    fOrdenarFilas(estado, fPorBytes);
}
template <const char *strRuta> void fLlenar(clsEstado &estado)
{
    fEmpezarLista(estado);
    fAgregar(estado.filas);
    fOrdenarFilas(estado, fPorBytes);
    fHacerActual(estado, fActualTrasLlenar(estado, strRuta));
}
void fFiltrar(clsEstado &estado, const clsPosiciones &lstPosiciones)
{
    std::vector<clsConservada> lstFilas;
    for (const int lngPos : lstPosiciones) {
        lstFilas.push_back({lngPos, -1, {}});
    }
    fTomarFiltradas(estado, lstFilas, 4);
}
void fFiltrarTodas(clsEstado &estado) { fFiltrar(estado, {0, 1, 2, 3}); }
void fFiltrarDos(clsEstado &estado) { fFiltrar(estado, {2, 3}); }
constexpr char strNinguna[] = "";
constexpr char strOtra[] = "/r/a/z.jpg";
constexpr char strD[] = "/r/b/d.jpg";
void fQuitarFiltro(clsEstado &estado)
{
    fFiltrarDos(estado);
    fLlenar<strD>(estado);
}

TEST(Estado, ChangesAsEveryOperationAsks)
{
    struct clsCaso {
        const char *strFrase;
        void (*fOperacion)(clsEstado &);
        const char *strVisto;
        bool bolFiltrada;
    };
    const clsCaso lstCasos[] = {
        {"as it was", fNada, "cA[b]d", false},
        {"a fill keeps the file asked for", fLlenar<strD>, "cab[d]", false},
        {"a fill without one takes the first", fLlenar<strNinguna>, "[c]abd", false},
        {"so does one whose file is gone", fLlenar<strOtra>, "[c]abd", false},
        {"by name", fPorNombre, "A[b]cd", false},
        {"by date again turns round", fPorFecha, "d[b]Ac", false},
        {"another column ascends", fPorFechaYTamano, "[b]Acd", false},
        {"a filter keeps the position with all", fFiltrarTodas, "ca[b]d", false},
        {"with fewer it begins with the first", fFiltrarDos, "[b]d", true},
        {"a fill removes it and keeps the file", fQuitarFiltro, "cab[d]", false},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        clsEstado estado = fLleno();
        caso.fOperacion(estado);
        EXPECT_EQ(fVer(estado), caso.strVisto);
        EXPECT_EQ(estado.bolFiltrada, caso.bolFiltrada);
        EXPECT_EQ(estado.lngGeneracion > 0, &caso != lstCasos) << "draws under way are out of date";
    }
}

TEST(Estado, BeginsAListAnewByDate)
{
    clsEstado estado = fLleno();
    fElegirColumna(estado, Columna::Nombre);
    fElegirColumna(estado, Columna::Nombre);
    EXPECT_TRUE(estado.bolDescendente);
    fEmpezarLista(estado);
    EXPECT_EQ(estado.columna, Columna::Fecha);
    EXPECT_FALSE(estado.bolDescendente);
    EXPECT_EQ(estado.lngTotalKB, 0);
    EXPECT_TRUE(estado.filas.fVacia());
    fOrdenarFilas(estado, fPorBytes); // nothing to order
    EXPECT_EQ(estado.lngActual, 0);
}

TEST(Estado, KnowsWhereAStepLeads)
{
    struct clsCaso {
        const char *strFrase;
        Avance avance;
        bool bolMiniaturas;
        int lngActual;
        std::optional<int> lngAtras, lngAdelante;
    };
    const clsCaso lstCasos[] = {
        {"file by file", Avance::Normal, false, 2, 1, 3},
        {"at the end", Avance::Normal, false, 3, 2, std::nullopt},
        {"page by page", Avance::Normal, true, 1, std::nullopt, 3},
        {"by months, also of a page", Avance::Mes, true, 2, 1, 3},
        {"by folders", Avance::Carpeta, false, 0, std::nullopt, 2},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        clsEstado estado = fLleno();
        estado.avance = caso.avance;
        estado.bolMiniaturas = caso.bolMiniaturas;
        estado.lngActual = caso.lngActual;
        EXPECT_EQ(fDestino(estado, Sentido::Atras), caso.lngAtras);
        EXPECT_EQ(fDestino(estado, Sentido::Adelante), caso.lngAdelante);
        EXPECT_EQ(fDestino(estado, Movimiento::Ultimo),
                  caso.lngActual == 3 ? std::nullopt : std::optional(3));
    }
}

TEST(Estado, KnowsWhatThePanelShowsAndWhatComesNext)
{
    clsEstado estado = fLleno();
    EXPECT_EQ(fALaVista(estado), (clsTramo{2, 3}));
    EXPECT_EQ(fVecinas(estado), clsPosiciones({3, 1}));
    estado.bolMiniaturas = true;
    EXPECT_EQ(fALaVista(estado), (clsTramo{0, 3}));
    fHacerActual(estado, 99);
    EXPECT_EQ(fALaVista(estado), (clsTramo{3, 4}));
    EXPECT_EQ(fVecinas(estado), clsPosiciones({2}));
    fHacerActual(estado, -1);
    EXPECT_EQ(fVecinas(estado), clsPosiciones({1}));
}

TEST(Estado, GoesOnAfterACorrectionWithTheNextFileThatKeptItsName)
{
    struct clsCaso {
        const char *strFrase;
        const char *strRenombradas; ///< letters of the files that have a new name
        std::string strSigue;
    };
    const clsCaso lstCasos[] = {
        {"the current one, if it kept its name", "ad", "/r/b/b.jpg"},
        {"the one that follows", "b", "/r/a/c.jpg"},
        {"past those that were corrected with it", "bc", "/r/b/d.jpg"},
        {"at the end the one before", "bcd", "/r/a/a.jpg"},
        {"where none is left, itself", "abcd", "nueva b"},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        clsEstado estado = fLleno();
        fPorNombre(estado); // a, b, c, d: the order counts, not that of the dates
        std::vector<clsCorregido> lstCorregidos;
        for (int lngPos = 0; lngPos < estado.filas.fCantidad(); ++lngPos) {
            const std::string strRuta = estado.filas.fRuta(lngPos);
            const std::string strLetra(estado.filas.fNombre(lngPos).substr(0, 1));
            const bool bolNueva =
                std::string(caso.strRenombradas).find(strLetra) != std::string::npos;
            lstCorregidos.push_back({strRuta, {}, true, bolNueva ? "nueva " + strLetra : strRuta});
        }
        EXPECT_EQ(fRutaAlSeguir(estado, lstCorregidos), caso.strSigue);
    }
}

TEST(Estado, TurnsFollowTheNamesOfFiles)
{
    clsEstado estado;
    estado.giros.fGirar("/a", 1);
    estado.giros.fGirar("/b", 2);
    estado.giros.fGirar("/c", 3);
    // One gets the name that another one had, one keeps its own, one was never turned.
    fSeguirNombres(estado, {{.strFilePath = "/a", .strFilePathNew = "/b"},
                            {.strFilePath = "/b", .strFilePathNew = "/z"},
                            {.strFilePath = "/c", .strFilePathNew = "/c"},
                            {.strFilePath = "/d", .strFilePathNew = "/a"}});
    const std::pair<const char *, int> lstCasos[] = {{"/a", 0}, {"/b", 1}, {"/z", 2}, {"/c", 3}};
    for (const auto &[strRuta, intCuartos] : lstCasos) {
        EXPECT_EQ(estado.giros.fCuartos(strRuta), intCuartos) << strRuta;
    }
}

TEST(Estado, ActsOnTheTickedRowsOrTheCurrentOne)
{
    clsEstado estado = fLleno();
    EXPECT_EQ(fMarcadasOActual(estado), clsPosiciones({1}));
    estado.filas.fMarcar(1, false);
    EXPECT_EQ(fMarcadasOActual(estado), clsPosiciones({2}));
}

TEST(Estado, TellsPositionFromOneAndTheDateDayFirstIfItReads)
{
    clsEstado estado;
    estado.filas.fAgregarFila("/f\xF1/a\u00F1o.jpg", "2009/07/14 18:03:22", 12345 * 1024);
    estado.filas.fAgregarFila("/f/a.jpg", "ayer", 1);
    EXPECT_EQ(fTextoInfo1(0, 7), "1 de 7");
    EXPECT_EQ(fTextoInfo2(estado, {}), "/f\u00F1/a\u00F1o.jpg      Fecha: 14/07/2009 18:03:22"
                                       "      Tama\u00F1o: 12.345 KB");
    estado.lngActual = 1;
    EXPECT_EQ(fTextoInfo2(estado, {}), "/f/a.jpg      Fecha: ayer      Tama\u00F1o: 0 KB");
    estado.filas.fAgregarFila("/f/a\u202Egpj.jpg", "ayer", 1); // what follows is not turned
    estado.lngActual = 2;
    EXPECT_EQ(fTextoInfo2(estado, {}), "/f/a\uFFFDgpj.jpg      Fecha: ayer      Tama\u00F1o: 0 KB");
    estado.bolPendiente = true;
    EXPECT_EQ(fTextoInfo2(estado, {}), "Procesando...");
}

} // namespace
