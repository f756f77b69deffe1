#include "dates/deshacer.h"

#include "catalogue/constructor.h"
#include "catalogue/diario.h"
#include "dates/informe.h"
#include "dates/vuelta.h"
#include "sistema/carpeta.h"
#include "soporte/arbol.h"
#include "soporte/fallos.h"

#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const clsFecha fechaPuesta = fFechaDe({2009, 7, 15, 12, 0, 0}).value_or(clsFecha{});

// --- What is to be done with a file ---

/// A look at a file: "-" nothing there, "v" as before the correction, "n" as after it, "c" changed,
/// "g" another file that is like it then, "r" a link to it that leads nowhere, "x" it cannot be
/// looked at; "2" behind it: two names.
clsResultado<clsVisto> fMirada(std::string_view strForma, const clsAnotacion &anotacion)
{
    if (strForma == "-" || strForma == "x") {
        return clsError(strForma == "-" ? ENOENT : EIO);
    }
    clsVisto visto = anotacion.antes;
    visto.lngNombres = strForma.ends_with('2') ? 2 : 1;
    visto.bolRoto = strForma[0] == 'r';
    visto.identidad.lngNumero += strForma[0] == 'g' ? 1 : 0;
    visto.huella = strForma[0] == 'v' ? anotacion.antes.huella : anotacion.despues;
    visto.huella.lngSegundos += strForma[0] == 'c' || strForma[0] == 'r' ? 1000 : 0;
    return visto;
}

TEST(Vuelta, GoesByWhatLiesAtBothPaths)
{
    struct clsCaso {
        const char *strA;
        const char *strDe;
        clsVuelta::Caso caso;
        int intError;
    };
    using enum clsVuelta::Caso;
    const clsAnotacion anotacion{
        "a", "20090715_a", fechaPuesta, {{4, 1000, 5}, {1, 2}, 1}, {4, 2000, 0}};
    for (const clsCaso &caso : {clsCaso{"n", "-", Toda, 0},
                                {"r", "-", Nombre, 0},
                                {"v", "-", Nombre, 0},
                                {"-", "v", Hecha, 0},
                                {"-", "n", Hora, 0},
                                {"c", "v", Hecha, 0},
                                {"c", "n", Hora, 0},
                                {"n2", "n2", Soltar, 0},
                                {"n2", "g", Dejar, EEXIST},
                                {"n", "n", Dejar, EEXIST},
                                {"n", "v", Dejar, EEXIST},
                                {"v", "c", Dejar, EEXIST},
                                {"n", "x", Dejar, EIO},
                                {"c", "-", Dejar, errorCambiado.fNumero()},
                                {"c", "c", Dejar, errorCambiado.fNumero()},
                                {"-", "c", Dejar, errorCambiado.fNumero()},
                                {"-", "-", Dejar, ENOENT},
                                {"x", "-", Dejar, EIO}}) {
        SCOPED_TRACE(std::string(caso.strA) + " " + caso.strDe);
        const clsVuelta vuelta =
            fVuelta(anotacion, fMirada(caso.strA, anotacion), fMirada(caso.strDe, anotacion));
        EXPECT_EQ(vuelta.caso, caso.caso);
        EXPECT_EQ(vuelta.error, caso.intError);
    }
    clsAnotacion sinNombre = anotacion;
    sinNombre.strA = sinNombre.strDe;
    for (const auto &[strForma, caso] :
         {std::pair{"n", Hora}, {"v", Hecha}, {"c", Dejar}, {"-", Dejar}}) {
        const auto visto = fMirada(strForma, sinNombre);
        EXPECT_EQ(fVuelta(sinNombre, visto, visto).caso, caso) << strForma;
    }
    sinNombre.despues = sinNombre.antes.huella; // nothing was done with it
    EXPECT_EQ(fVuelta(sinNombre, clsError(ENOENT), clsError(ENOENT)).caso, Hecha);
}

// --- Files ---

constexpr const char *strCatalogoVuelta = "Miravel.dat";

/// An archive with times to the nanosecond, and dates in its catalogue that are not theirs.
class clsAlbum {
public:
    explicit clsAlbum(const std::vector<std::string> &lstNombres) : m_lstNombres(lstNombres)
    {
        std::string strCatalogo = "un registro\r\nde otro\r\n 1 \r\n";
        for (const std::string &strNombre : lstNombres) {
            const timespec lstMomentos[2] = {
                {3, 4}, {static_cast<std::time_t>(1'000'000 + strNombre.size()), 123'456'789}};
            arbol.fCrear(strNombre, "bytes de " + strNombre);
            EXPECT_EQ(utimensat(AT_FDCWD, arbol.fRuta(strNombre).c_str(), lstMomentos, 0), 0);
            strCatalogo += arbol.fRuta(strNombre) + "\r\nuna fecha\r\n 7 \n";
        }
        arbol.fCrear(strCatalogoVuelta, strCatalogo + "a medias\r\n");
        m_antes = fComoEsta();
    }

    void fCorregirTodo(const std::vector<std::string> &lstNombres, clsFecha fecha = fechaPuesta,
                       bool bolNombre = true) const
    {
        std::vector<clsCorregido> lstFicheros;
        for (const std::string &strNombre : lstNombres) {
            lstFicheros.push_back({arbol.fRuta(strNombre), fecha, bolNombre});
        }
        EXPECT_EQ(fCorregir(arbol.fRaiz(), true, lstFicheros, {}).correccion, Correccion::Hecha);
    }
    void fCorregirTodo() const { fCorregirTodo(m_lstNombres); }

    [[nodiscard]] clsFinDeshacer fVolver(int intPasos = 1000) const
    {
        return fDeshacer(arbol.fRaiz(), true, [&] { return --intPasos > 0; });
    }
    /// Whether everything is as it was, but for backups.
    [[nodiscard]] bool fComoAntes() const { return fComoEsta() == m_antes; }
    [[nodiscard]] std::string fCatalogo() const { return arbol.fLeer(strCatalogoVuelta); }

    const clsArbol arbol;

private:
    /// Bytes and times of everything but backups.
    [[nodiscard]] std::map<std::string, std::string> fComoEsta() const
    {
        std::map<std::string, std::string> mapTodo;
        for (const std::string &strNombre : arbol.fNombres()) {
            struct stat datos {};
            EXPECT_EQ(stat(arbol.fRuta(strNombre).c_str(), &datos), 0);
            const bool bolCatalogo = strNombre == strCatalogoVuelta;
            if (!strNombre.starts_with("Miravel.dat.")) {
                mapTodo[strNombre] =
                    (S_ISDIR(datos.st_mode) ? "" : arbol.fLeer(strNombre)) +
                    (bolCatalogo ? "" : std::to_string(datos.st_mtim.tv_sec)) +
                    (bolCatalogo ? "" : '.' + std::to_string(datos.st_mtim.tv_nsec));
            }
        }
        return mapTodo;
    }

    const std::vector<std::string> m_lstNombres;
    std::map<std::string, std::string> m_antes;
};

TEST(Deshacer, GivesBackNamesTimesAndCatalogue)
{
    const clsAlbum album({"a.jpg", "b.jpg", "20090714_c.jpg"});
    EXPECT_EQ(album.fVolver().fin.correccion, Correccion::Ninguna);
    album.fCorregirTodo();
    const auto lstHechas = fCorreccionesHechas(album.arbol.fRaiz());
    ASSERT_EQ(lstHechas.size(), 1U);
    EXPECT_EQ(lstHechas[0].intFicheros, 3);
    const clsFinDeshacer fin = album.fVolver();
    EXPECT_EQ(fin.fin.correccion, Correccion::Hecha);
    EXPECT_EQ(fInforme(fin.lstFicheros, "deshecho"), "3 deshechos.");
    EXPECT_EQ(fin.lstFicheros[0].strFilePathNew, album.arbol.fRuta("a.jpg"));
    EXPECT_FALSE(fin.bolPendiente);
    EXPECT_TRUE(album.fComoAntes());
    EXPECT_TRUE(fCorreccionesHechas(album.arbol.fRaiz()).empty());
    EXPECT_EQ(album.fVolver().fin.correccion, Correccion::Ninguna);
}

TEST(Deshacer, TakesTheLatestBackFirst)
{
    const clsAlbum album({"a.jpg", "b.jpg"});
    album.fCorregirTodo({"a.jpg", "b.jpg"});
    const std::string strDespues = album.fCatalogo();
    const clsFecha fechaPosterior{fechaPuesta.lngSegundos + 100'000};
    album.fCorregirTodo({"20090715_b.jpg"}, fechaPosterior);
    album.fCorregirTodo({"20090715_a.jpg"}, fechaPosterior, false); // keeps its name
    EXPECT_EQ(fCorreccionesHechas(album.arbol.fRaiz()).size(), 3U);
    EXPECT_EQ(album.fVolver().lstFicheros.size(), 1U);
    EXPECT_EQ(album.fVolver().lstFicheros.size(), 1U);
    EXPECT_EQ(album.fCatalogo(), strDespues);
    EXPECT_EQ(album.fVolver().lstFicheros.size(), 2U);
    EXPECT_TRUE(album.fComoAntes());
}

TEST(Deshacer, PutsRecordsRightByTheirPathsWhenTheCatalogueIsNew)
{
    const clsAlbum album({"a.jpg", "b.jpg", "queda.jpg"});
    album.fCorregirTodo({"a.jpg", "b.jpg"});
    class clsMudo : public clsObservador {
        void fCarpeta(const std::string &) override {}
        void fError(clsError) override {}
        bool fSeguir() override { return true; }
    } mudo;
    ASSERT_EQ(fConstruir(album.arbol.fRaiz(), mudo).construccion, Construccion::Hecha);
    EXPECT_EQ(fInforme(album.fVolver().lstFicheros, "deshecho"), "2 deshechos.");
    // The new catalogue tells what a newer one would; nothing else is another record.
    for (const char *const strNombre : {"a.jpg", "b.jpg"}) {
        const auto huella = fHuella(album.arbol.fRuta(strNombre));
        const std::string strRegistro = album.arbol.fRuta(strNombre) + "\r\n" +
                                        fEscribirFecha(fFechaLocal(huella->lngSegundos)) + "\r\n";
        EXPECT_NE(album.fCatalogo().find(strRegistro), std::string::npos) << strNombre;
    }
    EXPECT_EQ(album.fCatalogo().find("20090715_"), std::string::npos);
    EXPECT_NE(album.fCatalogo().find(album.arbol.fRuta("queda.jpg")), std::string::npos);
}

TEST(Deshacer, WorksWithoutACatalogueAndWithoutTheBackup)
{
    const clsAlbum album({"a.jpg"});
    album.fCorregirTodo();
    ASSERT_EQ(unlink(album.arbol.fRuta(strCatalogoVuelta).c_str()), 0);
    EXPECT_EQ(album.fVolver().fin.correccion, Correccion::Hecha);
    EXPECT_EQ(fHuella(album.arbol.fRuta("a.jpg"))->lngNanosegundos, 123'456'789);
    EXPECT_TRUE(fCorreccionesHechas(album.arbol.fRaiz()).empty());
    const clsAlbum otro({"a.jpg"});
    otro.fCorregirTodo();
    const std::string strDia = fCorreccionesHechas(otro.arbol.fRaiz())[0].strDiario.substr(15);
    ASSERT_EQ(unlink(otro.arbol.fRuta("Miravel.dat" + strDia).c_str()), 0);
    EXPECT_EQ(otro.fVolver().fin.correccion, Correccion::Hecha);
    EXPECT_NE(otro.fCatalogo().find("/a.jpg\r\n1970/01/12 "), std::string::npos);
}

TEST(Deshacer, LeavesWhatHasChangedAndSaysSo)
{
    const clsAlbum album({"otro tamano.jpg", "otra hora.jpg", "falta.jpg", "bien.jpg"});
    album.fCorregirTodo();
    const clsArbol &arbol = album.arbol;
    arbol.fCrear("20090715_otro tamano.jpg", "retocada", *fMomento(fechaPuesta));
    arbol.fCrear("20090715_otra hora.jpg", "bytes de otra hora.jpg", *fMomento(fechaPuesta) + 60);
    ASSERT_EQ(unlink(arbol.fRuta("20090715_falta.jpg").c_str()), 0);
    const clsFinDeshacer fin = album.fVolver();
    EXPECT_EQ(fin.fin.correccion, Correccion::Hecha);
    EXPECT_EQ(fInforme(fin.lstFicheros, "deshecho"),
              "1 deshecho, 3 no:\r\n" + arbol.fRuta("20090715_otro tamano.jpg") +
                  " (Ha cambiado desde entonces)\r\n" + arbol.fRuta("20090715_otra hora.jpg") +
                  " (Ha cambiado desde entonces)\r\n" + arbol.fRuta("20090715_falta.jpg") +
                  " (2: No existe el fichero o la carpeta)");
    EXPECT_EQ(arbol.fLeer("20090715_otro tamano.jpg"), "retocada");
    EXPECT_EQ(arbol.fLeer("bien.jpg"), "bytes de bien.jpg");
    const std::string strPuesta = "\r\n2009/07/15 12:00:00\r\n 7 \n";
    EXPECT_EQ(album.fCatalogo(),
              "un registro\r\nde otro\r\n 1 \r\n" + arbol.fRuta("20090715_otro tamano.jpg") +
                  strPuesta + arbol.fRuta("20090715_otra hora.jpg") + strPuesta +
                  arbol.fRuta("20090715_falta.jpg") + strPuesta + arbol.fRuta("bien.jpg") +
                  "\r\nuna fecha\r\n 7 \na medias\r\n");
    // Doing it again would give nothing more: the one before is the latest now.
    EXPECT_FALSE(fin.bolPendiente);
    EXPECT_TRUE(fCorreccionesHechas(arbol.fRaiz()).empty());
}

TEST(Deshacer, CanBeDoneAgainForFilesWhoseNameWasTakenAndAfterAnEnd)
{
    const clsAlbum album({"a.jpg", "b.jpg", "c.jpg"});
    album.fCorregirTodo();
    album.arbol.fCrear("b.jpg", "de otro");
    const clsFinDeshacer uno = album.fVolver(1);
    EXPECT_EQ(fInforme(uno.lstFicheros, "deshecho"),
              "1 deshecho, 1 no:\r\n" + album.arbol.fRuta("20090715_b.jpg") +
                  " (17: El fichero ya existe)\r\nSin empezar: 1.");
    const clsFinDeshacer dos = album.fVolver();
    EXPECT_TRUE(uno.bolPendiente && dos.bolPendiente);
    EXPECT_EQ(album.arbol.fLeer("b.jpg"), "de otro");
    EXPECT_NE(album.fCatalogo().find("20090715_b.jpg\r\n2009/07/15 12:00:00\r\n"),
              std::string::npos);
    ASSERT_EQ(unlink(album.arbol.fRuta("b.jpg").c_str()), 0);
    EXPECT_EQ(fInforme(album.fVolver().lstFicheros, "deshecho"), "3 deshechos.");
    EXPECT_TRUE(album.fComoAntes());
}

TEST(Deshacer, GivesLinksBackWhoseFileWasCorrectedToo)
{
    const clsAlbum album({"a.jpg", "z.jpg"});
    album.arbol.fEnlace("e.jpg", "a.jpg");
    album.arbol.fEnlace("y.jpg", "z.jpg");
    album.fCorregirTodo({"e.jpg", "a.jpg", "z.jpg", "y.jpg"});
    EXPECT_EQ(fInforme(album.fVolver().lstFicheros, "deshecho"), "4 deshechos.");
    EXPECT_EQ(album.arbol.fLeer("e.jpg"), "bytes de a.jpg");
    ASSERT_EQ(unlink(album.arbol.fRuta("e.jpg").c_str()), 0);
    ASSERT_EQ(unlink(album.arbol.fRuta("y.jpg").c_str()), 0);
    EXPECT_TRUE(album.fComoAntes());
}

TEST(Deshacer, MeansTheCorrectedFilesWhateverFailedThen)
{
    const clsAlbum album({"a.jpg", "b.jpg", "20090715_b.jpg"});
    album.fCorregirTodo({"a.jpg", "b.jpg", "falta.jpg", "a.jpg"});
    EXPECT_EQ(album.arbol.fLeer("b.jpg"), "bytes de b.jpg"); // its new name was taken
    const clsFinDeshacer fin = album.fVolver();
    EXPECT_EQ(fInforme(fin.lstFicheros, "deshecho"), "4 deshechos.");
    EXPECT_TRUE(album.fComoAntes());
}

TEST(Deshacer, TakesNothingFromDamagedOrForeignJournals)
{
    const clsAlbum album({"a.jpg"});
    album.fCorregirTodo();
    const std::string strDiario = fCorreccionesHechas(album.arbol.fRaiz())[0].strDiario;
    const std::string strEntero = album.arbol.fLeer(strDiario);
    const std::size_t lngFin = strEntero.rfind("fin 1");
    for (const std::string &strMalo :
         {strEntero.substr(0, lngFin), strEntero.substr(0, lngFin) + "deshacer 1\r\n",
          "../" + strEntero, std::string("nada"), std::string()}) {
        album.arbol.fCrear(strDiario, strMalo);
        EXPECT_TRUE(fCorreccionesHechas(album.arbol.fRaiz()).empty());
        EXPECT_EQ(album.fVolver().fin.correccion, Correccion::Ninguna);
        EXPECT_EQ(album.arbol.fLeer(strDiario), strMalo);
        EXPECT_EQ(album.arbol.fLeer("20090715_a.jpg"), "bytes de a.jpg");
    }
    album.arbol.fCrear(strDiario, strEntero);
    const clsArbol &arbol = album.arbol;
    EXPECT_EQ(fDeshacer(arbol.fRaiz(), false).fin.correccion, Correccion::SinPermiso);
    {
        const clsCerrojoArchivo cerrojo(arbol.fRaiz());
        EXPECT_EQ(album.fVolver().fin.correccion, Correccion::Ocupada);
    }
    EXPECT_EQ(album.fVolver().fin.correccion, Correccion::Hecha);
    EXPECT_TRUE(album.fComoAntes());
}

TEST(Deshacer, TakesTheBackupOnlyWhereNothingElseHasChanged)
{
    struct clsCaso {
        const char *strFrase;
        std::string_view strDe; ///< in the catalogue after the correction
        std::string_view strA;  ///< takes its place, and stays
    };
    for (const clsCaso &caso : {clsCaso{"another size", " 7 \na", " 9 \na"},
                                {"another end of a line", " 7 \na", " 7 \r\na"},
                                {"another record", "un registro\r\n", "otro registro\r\n"},
                                {"one more", "a medias\r\n", "uno\r\nmas\r\n 1 \r\n"}}) {
        SCOPED_TRACE(caso.strFrase);
        const clsAlbum album({"a.jpg", "b.jpg"});
        album.fCorregirTodo();
        std::string strCatalogo = album.fCatalogo();
        const std::size_t lngDonde = strCatalogo.find(caso.strDe);
        ASSERT_NE(lngDonde, std::string::npos);
        strCatalogo.replace(lngDonde, caso.strDe.size(), caso.strA);
        album.arbol.fCrear(strCatalogoVuelta, strCatalogo);
        EXPECT_EQ(fInforme(album.fVolver().lstFicheros, "deshecho"), "2 deshechos.");
        EXPECT_NE(album.fCatalogo().find(caso.strA), std::string::npos);
        EXPECT_EQ(album.fCatalogo().find("una fecha"), std::string::npos);
        EXPECT_EQ(album.fCatalogo().find("20090715_"), std::string::npos);
    }
}

TEST(Deshacer, KnowsTheFileItTakesBackWhenItIsKilledThen)
{
    const clsAlbum album({"a.jpg"});
    album.fCorregirTodo();
    const clsArbol &arbol = album.arbol;
    ASSERT_EQ(rename(arbol.fRuta("20090715_a.jpg").c_str(), arbol.fRuta("a.jpg").c_str()), 0);
    arbol.fCrear("20090715_a.jpg", "de otro, y de otro tamano");
    const std::string strDiario(strFicheroDiario);
    const std::string strAntes = album.fCatalogo();
    std::string strPlan;
    const clsFinDeshacer fin = fDeshacer(arbol.fRaiz(), true, [&] {
        strPlan = arbol.fLeer(strDiario);
        return true;
    });
    EXPECT_EQ(fInforme(fin.lstFicheros, "deshecho"), "1 deshecho.");
    // As it is when it was killed behind the file: the next start goes by what was planned.
    arbol.fCrear(strCatalogoVuelta, arbol.fRuta("a.jpg") + "\r\nuna fecha\r\n 7 \n");
    arbol.fCrear(strDiario, strPlan);
    fTerminarCorreccion(arbol.fRaiz());
    EXPECT_NE(album.fCatalogo().find("/a.jpg\r\n1970/01/12 "), std::string::npos);
    EXPECT_EQ(arbol.fLeer("20090715_a.jpg"), "de otro, y de otro tamano");
}

TEST(Deshacer, TellsNamesAFileAlwaysHadFromThoseOfACorrection)
{
    const clsAlbum album({"a.jpg"});
    const clsArbol &arbol = album.arbol;
    ASSERT_EQ(link(arbol.fRuta("a.jpg").c_str(), arbol.fRuta("20090715_a.jpg").c_str()), 0);
    const auto antes = fVer(arbol.fRuta("a.jpg"));
    clsAnotacion anotacion{"a.jpg", "20090715_a.jpg", fechaPuesta, *antes, antes->huella};
    anotacion.despues.lngSegundos = *fMomento(fechaPuesta);
    ASSERT_EQ(fEscribirDiario(arbol.fRaiz(), {"Miravel.dat.20200101000000", {anotacion}}), 0);
    const timespec lstMomentos[2] = {{0, UTIME_OMIT}, {anotacion.despues.lngSegundos, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, arbol.fRuta("a.jpg").c_str(), lstMomentos, 0), 0);
    fTerminarCorreccion(arbol.fRaiz()); // it was killed before the name, which could not be given
    EXPECT_EQ(fInforme(album.fVolver().lstFicheros, "deshecho"), "1 deshecho.");
    EXPECT_EQ(fHuella(arbol.fRuta("a.jpg"))->lngNanosegundos, 123'456'789);
    EXPECT_EQ(arbol.fLeer("20090715_a.jpg"), "bytes de a.jpg");
}

TEST(Deshacer, WorksOnFat)
{
    const clsOtrasLlamadas otras(fDiscoFat());
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    arbol.fCrear("b.jpg", "otra");
    arbol.fCrear("20090715_b.jpg", "su nombre");
    const std::string strCatalogo = arbol.fRuta("a.jpg") + "\r\nf\r\n 4 \r\n";
    arbol.fCrear(strCatalogoVuelta, strCatalogo);
    const clsFecha fechaImpar{fechaPuesta.lngSegundos + 1};
    std::vector<clsCorregido> lstFicheros = {{arbol.fRuta("a.jpg"), fechaImpar},
                                             {arbol.fRuta("b.jpg"), fechaImpar}};
    ASSERT_EQ(fCorregir(arbol.fRaiz(), true, lstFicheros, {}).correccion, Correccion::Hecha);
    const clsFinDeshacer fin = fDeshacer(arbol.fRaiz(), true);
    EXPECT_EQ(fInforme(fin.lstFicheros, "deshecho"), "2 deshechos.");
    EXPECT_EQ(arbol.fLeer("a.jpg") + arbol.fLeer("b.jpg"), "fotootra");
    EXPECT_EQ(fHuella(arbol.fRuta("a.jpg"))->lngSegundos, clsArbol::lngMomento);
    EXPECT_EQ(fHuella(arbol.fRuta("b.jpg"))->lngSegundos, clsArbol::lngMomento);
    EXPECT_EQ(arbol.fLeer(strCatalogoVuelta), strCatalogo);
}

} // namespace
