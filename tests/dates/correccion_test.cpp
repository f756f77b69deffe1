#include "dates/informe.h"

#include "catalogue/diario.h"
#include "catalogue/registro.h"
#include "dates/deshacer.h"
#include "shared/errores.h"
#include "sistema/carpeta.h"
#include "soporte/arbol.h"
#include "soporte/fallos.h"
#include "soporte/proceso.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Textos = std::vector<std::string>;
constexpr const char *strDat = "Miravel.dat";
const clsFecha fechaNueva = fFechaDe({2009, 7, 15, 12, 0, 0}).value_or(clsFecha{});

/// The disk as it is, with a clock that stands still.
clsLlamadas fDiscoQuieto()
{
    clsLlamadas disco = llamadasReales;
    disco.fAhora = [] { return fMomento(fFechaDe({2020, 12, 31, 23, 59, 59}).value()).value(); };
    return disco;
}
const clsLlamadas discoQuieto = fDiscoQuieto();
constexpr const char *strCopia = "Miravel.dat.20201231235959";
constexpr const char *strGuardado = ".Miravel.diario.20201231235959";

/// Corrects files of a tree, and keeps what was reported of them.
struct clsIntento {
    clsIntento(const clsArbol &arbol, const Textos &lstNombres, clsFecha fecha = fechaNueva,
               const clsLlamadas &disco = discoQuieto)
    {
        const clsOtrasLlamadas otras(disco);
        for (const std::string &strNombre : lstNombres) {
            lstFicheros.push_back({arbol.fRuta(strNombre), fecha});
        }
        fin = fCorregir(
            arbol.fRaiz(), true, lstFicheros,
            [&](const std::string &strAviso) { strAvisos += strAviso + '\n'; },
            [&] { return ++lngPasos > 0; });
    }

    int lngPasos = 0;
    std::vector<clsCorregido> lstFicheros;
    clsFinCorreccion fin;
    std::string strAvisos; ///< the boxes, a line feed behind each
};

/// A catalogue text with "@" for the root, "|" for CR LF, "~" for the new prefix and "#" for the
/// new date.
std::string fTexto(const clsArbol &arbol, std::string_view strForma)
{
    std::string strTexto;
    for (const char chr : strForma) {
        strTexto += chr == '@'   ? arbol.fRaiz()
                    : chr == '|' ? "\r\n"
                    : chr == '~' ? "20090715_"
                    : chr == '#' ? "2009/07/15 12:00:00"
                                 : std::string(1, chr);
    }
    return strTexto;
}

/// Everything of a file that a correction leaves alone.
struct clsIntacto {
    clsIntacto(const clsArbol &arbol, const std::string &strNombre)
    {
        struct stat datos {};
        EXPECT_EQ(stat(arbol.fRuta(strNombre).c_str(), &datos), 0) << strNombre;
        lngAcceso = datos.st_atim.tv_sec * 1'000'000'000 + datos.st_atim.tv_nsec;
        lngModo = datos.st_mode;
        lngDueno = datos.st_uid;
        lngNumero = datos.st_ino;
        lngBytes = datos.st_size;
        lngFecha = datos.st_mtim.tv_sec;
        strBytes = arbol.fLeer(strNombre);
        // Reading may have set it.
        const timespec lstMomentos[2] = {datos.st_atim, datos.st_mtim};
        utimensat(AT_FDCWD, arbol.fRuta(strNombre).c_str(), lstMomentos, 0);
    }
    friend bool operator==(const clsIntacto &uno, const clsIntacto &otro)
    {
        return uno.lngAcceso == otro.lngAcceso && uno.lngModo == otro.lngModo &&
               uno.lngDueno == otro.lngDueno && uno.lngNumero == otro.lngNumero &&
               uno.lngBytes == otro.lngBytes && uno.strBytes == otro.strBytes;
    }

    std::int64_t lngAcceso = 0;
    mode_t lngModo = 0;
    uid_t lngDueno = 0;
    ino_t lngNumero = 0;
    off_t lngBytes = 0;
    std::time_t lngFecha = 0; ///< this one changes
    std::string strBytes;
};

TEST(RutaCorregida, PutsTheDayBeforeTheNameWhateverItBeginsWith)
{
    struct clsCaso {
        const char *strRuta;
        const char *strNueva;
    };
    for (const clsCaso &caso : {clsCaso{"/f/2009/DSC01234.JPG", "/f/2009/20090715_DSC01234.JPG"},
                                {"/f/20090714_DSC01234.JPG", "/f/20090715_20090714_DSC01234.JPG"},
                                {"/f/20090715_DSC01234.JPG", "/f/20090715_20090715_DSC01234.JPG"},
                                {"/f/.oculta", "/f/20090715_.oculta"},
                                {"/Mu\xF1oz/\xF1.jpg", "/Mu\xF1oz/20090715_\xF1.jpg"},
                                {"suelta.jpg", "20090715_suelta.jpg"},
                                {"/raiz.jpg", "/20090715_raiz.jpg"}}) {
        SCOPED_TRACE(caso.strRuta);
        EXPECT_EQ(fRutaCorregida(caso.strRuta, fechaNueva), caso.strNueva);
    }
}

TEST(Correccion, GivesFilesTheirDateTheirNameAndTheirRecord)
{
    const clsArbol arbol;
    arbol.fCrear("c/IMG_1.JPG", "una foto");
    arbol.fCrear("c/20090714_IMG_2.JPG", std::string("otra\0\xFF", 6));
    arbol.fCrear("queda.jpg");
    ASSERT_EQ(chmod(arbol.fRuta("c/IMG_1.JPG").c_str(), 0400), 0);
    arbol.fCrear(strDat, fTexto(arbol, "@queda.jpg|2009/07/14 18:03:22| 1 |"
                                       "@c/IMG_1.JPG|2009/07/14 18:03:22| 8 |"
                                       "@c/20090714_IMG_2.JPG|2001/01/01 00:00:00| 6 |"));
    ASSERT_EQ(chmod(arbol.fRuta(strDat).c_str(), 0640), 0);
    const std::string strViejo = arbol.fLeer(strDat);
    const clsIntacto una(arbol, "c/IMG_1.JPG");
    const clsIntacto otra(arbol, "c/20090714_IMG_2.JPG");
    const clsIntacto queda(arbol, "queda.jpg");

    const clsIntento intento(arbol, {"c/IMG_1.JPG", "c/20090714_IMG_2.JPG"});
    EXPECT_EQ(intento.fin.correccion, Correccion::Hecha);
    EXPECT_EQ(intento.fin.strCopia, arbol.fRuta(strCopia));
    EXPECT_EQ(intento.strAvisos, "");
    const Textos lstNuevos = {"c/20090715_IMG_1.JPG", "c/20090715_20090714_IMG_2.JPG"};
    EXPECT_EQ(arbol.fNombres("c"), (Textos{"20090715_20090714_IMG_2.JPG", "20090715_IMG_1.JPG"}));
    EXPECT_EQ(arbol.fNombres(), (Textos{strGuardado, strDat, strCopia, "c", "queda.jpg"}));
    EXPECT_EQ(intento.lstFicheros[0].strFilePathNew, arbol.fRuta(lstNuevos[0]));
    EXPECT_EQ(intento.lstFicheros[1].strFilePathNew, arbol.fRuta(lstNuevos[1]));
    EXPECT_TRUE(clsIntacto(arbol, lstNuevos[0]) == una);
    EXPECT_TRUE(clsIntacto(arbol, lstNuevos[1]) == otra);
    EXPECT_EQ(fFechaLocal(clsIntacto(arbol, lstNuevos[0]).lngFecha), fechaNueva);
    EXPECT_EQ(fFechaLocal(clsIntacto(arbol, lstNuevos[1]).lngFecha), fechaNueva);
    EXPECT_TRUE(clsIntacto(arbol, "queda.jpg") == queda);
    EXPECT_EQ(clsIntacto(arbol, "queda.jpg").lngFecha, clsArbol::lngMomento);
    EXPECT_EQ(arbol.fLeer(strCopia), strViejo);
    EXPECT_EQ(arbol.fLeer(strDat),
              fTexto(arbol, "@queda.jpg|2009/07/14 18:03:22| 1 |"
                            "@c/20090715_IMG_1.JPG|2009/07/15 12:00:00| 8 |"
                            "@c/20090715_20090714_IMG_2.JPG|2009/07/15 12:00:00| 6 |"));
    EXPECT_EQ(clsIntacto(arbol, strDat).lngModo & 07777, 0640U);
}

TEST(Correccion, ChangesOnlyTheLinesOfCorrectedFiles)
{
    // Corrected are "a", "\xF1" and "falta", which is not there and keeps its name.
    const auto fCaso = [](const char *strFrase, const char *strAntes, const char *strDespues) {
        SCOPED_TRACE(strFrase);
        const clsArbol arbol;
        arbol.fCrear("a");
        arbol.fCrear("\xF1");
        const std::string strViejo = fTexto(arbol, strAntes);
        arbol.fCrear(strDat, strViejo);
        const clsIntento intento(arbol, {"a", "\xF1", "falta"});
        EXPECT_EQ(intento.fin.correccion, Correccion::Hecha);
        EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, strDespues));
        EXPECT_EQ(arbol.fLeer(strCopia), strViejo);
    };
    fCaso("an empty catalogue", "", "");
    fCaso("no record of the file", "@z|f| 1 |", "@z|f| 1 |");
    fCaso("the size stays as it is", "@a|f|pesa mucho|", "@~a|#|pesa mucho|");
    fCaso("an empty date and an empty size", "@a||||@z|f| 1 |", "@~a|#|||@z|f| 1 |");
    fCaso("every record of the path", "@a|f|1|@z|f|1|@a|g|2|", "@~a|#|1|@z|f|1|@~a|#|2|");
    fCaso("a file that keeps its name", "@falta|f| 1 |", "@falta|#| 1 |");
    fCaso("foreign line ends, each kept", "@z\nf\n1\n@a\nf|1\n@z\r|f\r|1|@a|\r\r|1|",
          "@z\nf\n1\n@~a\n#|1\n@z\r|f\r|1|@~a|#|1|");
    fCaso("Windows-1252 bytes", "@Mu\xF1oz\x80|f|1|@\xF1|f|1|", "@Mu\xF1oz\x80|f|1|@~\xF1|#|1|");
    fCaso("no last line end", "@z|f| 1 |@a|f| 1 ", "@z|f| 1 |@~a|#| 1 ");
    fCaso("an incomplete end: a path", "@a|f| 1 |@a|", "@~a|#| 1 |@a|");
    fCaso("an incomplete end: no more than a path", "@a|f| 1 |@a", "@~a|#| 1 |@a");
    fCaso("an incomplete end: half a date", "@a|f| 1 |@a|2009", "@~a|#| 1 |@a|2009");
    fCaso("an incomplete end: a whole date", "@a|f| 1 |@a|f|", "@~a|#| 1 |@a|f|");
    fCaso("a line too few shifts what follows", "@z|f|@a|f| 1 |", "@z|f|@a|f| 1 |");
    fCaso("paths that differ a little", "@A|f|1|@aa|f|1|@|f|1| @a|f|1|@a |f|1|@a\r|f|1|",
          "@A|f|1|@aa|f|1|@|f|1| @a|f|1|@a |f|1|@a\r|f|1|");
}

TEST(Correccion, ReportsAFileThatKeepsItsNameAndGoesOn)
{
    struct clsCaso {
        const char *strFrase;
        const char *strNombre;
        int intErrorFecha;
        int intErrorNombre;
        bool bolRegistroNuevo; ///< its record gets the new path
    };
    // As another user than the owner of what is prepared as root.
    const clsCaso lstCasos[] = {
        {"the new name is taken", "IMG_1.JPG", 0, EEXIST, false},
        {"a read-only file", "lectura.jpg", 0, 0, true},
        {"a file without any right", "cerrada.jpg", 0, 0, true},
        {"a read-only folder", "c/fija.jpg", 0, EACCES, false},
        {"a file that vanished", "falta.jpg", ENOENT, ENOENT, false},
        {"a folder has taken its name", "carpeta.jpg", EISDIR, EISDIR, false},
        {"a link to a file", "enlace.jpg", 0, 0, true},
        {"another owner's file", "ajena.jpg", EPERM, 0, true},
        {"no way to the file", "d/lejos.jpg", EACCES, EACCES, false},
        {"the same file again", "enlace.jpg", ENOENT, ENOENT, true},
    };
    const clsArbol arbol;
    for (const char *const strNombre : {"IMG_1.JPG", "20090715_IMG_1.JPG", "lectura.jpg",
                                        "cerrada.jpg", "c/fija.jpg", "ajena.jpg", "d/lejos.jpg"}) {
        arbol.fCrear(strNombre, strNombre);
    }
    arbol.fCarpeta("carpeta.jpg");
    arbol.fCrear("destino.jpg");
    arbol.fEnlace("enlace.jpg", "destino.jpg");
    std::string strCatalogo;
    std::string strEsperado;
    std::string strAvisos;
    Textos lstNombres;
    for (const clsCaso &caso : lstCasos) {
        const std::string strRuta = arbol.fRuta(caso.strNombre);
        const std::string strNueva =
            caso.bolRegistroNuevo ? fRutaCorregida(strRuta, fechaNueva) : strRuta;
        fAnadirRegistro(strCatalogo, {}, strRuta, clsFecha{}, 7);
        fAnadirRegistro(strEsperado, {}, strNueva, fechaNueva, 7);
        if (caso.intErrorNombre != 0) {
            strAvisos += strRuta + "\r\nno puede llamarse\r\n" +
                         fRutaCorregida(strRuta, fechaNueva) + "\r\n" +
                         fTextoError(caso.intErrorNombre) + '\n';
        }
        lstNombres.emplace_back(caso.strNombre);
    }
    arbol.fCrear(strDat, strCatalogo);
    const bool bolRaiz = geteuid() == 0;
    for (const char *const strNombre :
         {"IMG_1.JPG", "lectura.jpg", "cerrada.jpg", "c/fija.jpg", "destino.jpg", "d/lejos.jpg"}) {
        EXPECT_TRUE(!bolRaiz || chown(arbol.fRuta(strNombre).c_str(), 65534, 65534) == 0);
    }
    for (const auto &[strNombre, modo] :
         {std::pair{"lectura.jpg", 0444U}, {"cerrada.jpg", 0U}, {"c", 0555U}, {"d", 0U}}) {
        EXPECT_EQ(chmod(arbol.fRuta(strNombre).c_str(), modo), 0);
    }
    EXPECT_EQ(fEnHijo([&] {
                  ASSERT_TRUE(fSoltarRaiz());
                  const clsIntento intento(arbol, lstNombres);
                  EXPECT_EQ(intento.fin.correccion, Correccion::Hecha);
                  EXPECT_EQ(intento.strAvisos, strAvisos);
                  for (std::size_t lng = 0; lng < std::size(lstCasos); ++lng) {
                      SCOPED_TRACE(lstCasos[lng].strFrase);
                      const clsCorregido &fichero = intento.lstFicheros[lng];
                      EXPECT_EQ(fichero.errorNombre, lstCasos[lng].intErrorNombre);
                      if (bolRaiz || lstCasos[lng].intErrorFecha != EPERM) {
                          EXPECT_EQ(fichero.errorFecha, lstCasos[lng].intErrorFecha);
                      }
                      EXPECT_EQ(fichero.strFilePathNew == fichero.strFilePath,
                                bool(fichero.errorNombre));
                  }
              }),
              0);
    ASSERT_EQ(chmod(arbol.fRuta("d").c_str(), 0755), 0);
    EXPECT_EQ(arbol.fLeer(strDat), strEsperado);
    for (const char *const strNombre :
         {"IMG_1.JPG", "20090715_IMG_1.JPG", "c/fija.jpg", "d/lejos.jpg"}) {
        EXPECT_EQ(arbol.fLeer(strNombre), strNombre);
    }
    // A link is renamed itself; the time is its target's, as the list shows it.
    EXPECT_EQ(fFechaLocal(clsIntacto(arbol, "destino.jpg").lngFecha), fechaNueva);
    if (!bolRaiz) {
        GTEST_SKIP() << "another owner's file needs root to be made; the rest was checked";
    }
    EXPECT_EQ(clsIntacto(arbol, "20090715_ajena.jpg").lngFecha, clsArbol::lngMomento);
}

TEST(Correccion, TouchesNothingWithoutTheRightToWrite)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 1 |"));
    const Textos lstNombres = arbol.fNombres();
    std::vector<clsCorregido> lstFicheros = {{arbol.fRuta("a.jpg"), fechaNueva}};
    EXPECT_EQ(fCorregir(arbol.fRaiz(), false, lstFicheros, {}).correccion, Correccion::SinPermiso);
    {
        const clsCerrojoArchivo cerrojo(arbol.fRaiz());
        EXPECT_EQ(clsIntento(arbol, {"a.jpg"}).fin.correccion, Correccion::Ocupada);
    }
    EXPECT_EQ(arbol.fNombres(), lstNombres);
    EXPECT_EQ(clsIntacto(arbol, "a.jpg").lngFecha, clsArbol::lngMomento);
    EXPECT_EQ(clsIntento(arbol, {"a.jpg"}).fin.correccion, Correccion::Hecha); // free again
}

TEST(Correccion, LeavesABackupEachTimeHoweverFastTheyFollow)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 1 |"));
    arbol.fCarpeta("Miravel.dat.20210101000001"); // any name that is taken is passed over
    const std::string strPrimero = arbol.fLeer(strDat);
    ASSERT_EQ(clsIntento(arbol, {"a.jpg"}).fin.correccion, Correccion::Hecha);
    const std::string strSegundo = arbol.fLeer(strDat);
    ASSERT_EQ(clsIntento(arbol, {"20090715_a.jpg"}).fin.correccion, Correccion::Hecha);
    const std::string strTercero = arbol.fLeer(strDat);
    ASSERT_EQ(clsIntento(arbol, {}).fin.strCopia, arbol.fRuta("Miravel.dat.20210101000002"));
    EXPECT_EQ(arbol.fLeer(strCopia), strPrimero);
    EXPECT_EQ(arbol.fLeer("Miravel.dat.20210101000000"), strSegundo);
    EXPECT_EQ(arbol.fLeer("Miravel.dat.20210101000002"), strTercero);
    EXPECT_EQ(strTercero, fTexto(arbol, "@20090715_20090715_a.jpg|2009/07/15 12:00:00| 1 |"));
}

TEST(Correccion, MakesFewBackupsOnADiskThatTakesNamesAndSaysTheyWereTaken)
{
    static int intRenombrados;
    for (const bool bolHace : {false, true}) {
        SCOPED_TRACE(bolHace);
        const clsArbol arbol;
        arbol.fCrear("a.jpg", "foto");
        const std::string strViejo = fTexto(arbol, "@a.jpg|f| 1 |");
        arbol.fCrear(strDat, strViejo);
        clsLlamadas disco = discoQuieto;
        disco.fRenombrarLibre = fFalla<EINVAL>;
        // Counts no names: a link that was made cannot be told from one that was there.
        disco.fConsultar = [](int intCarpeta, const char *strRuta, struct stat *datos,
                              int intModo) {
            const int intFin = llamadasReales.fConsultar(intCarpeta, strRuta, datos, intModo);
            datos->st_nlink = 1;
            return intFin;
        };
        disco.fEnlazar = [](int, const char *, const char *) {
            return ++intRenombrados, errno = EEXIST, -1;
        };
        if (bolHace) {
            disco.fEnlazar = [](int intCarpeta, const char *strDe, const char *strA) {
                ++intRenombrados;
                llamadasReales.fEnlazar(intCarpeta, strDe, strA);
                return errno = EEXIST, -1;
            };
        }
        intRenombrados = 0;
        const clsIntento intento(arbol, {"a.jpg"}, fechaNueva, disco);
        EXPECT_EQ(intento.fin.correccion, Correccion::SinCatalogo);
        EXPECT_EQ(intento.fin.error, EEXIST);
        EXPECT_EQ(arbol.fLeer(strDat), strViejo);
        EXPECT_EQ(arbol.fLeer("a.jpg"), "foto");
        EXPECT_LE(intRenombrados, 4);           // the photo, and three of the catalogue
        EXPECT_LE(arbol.fNombres().size(), 7U); // and the journal
    }
}

TEST(Correccion, SaysSoWhenThereIsNoCatalogueToRewrite)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    const clsIntento intento(arbol, {"a.jpg"});
    EXPECT_EQ(intento.fin.correccion, Correccion::SinCatalogo);
    EXPECT_EQ(intento.fin.error, ENOENT);
    EXPECT_EQ(arbol.fNombres(), Textos{"20090715_a.jpg"});
}

TEST(Correccion, TakesALinkForNoCatalogue)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    arbol.fCrear("d/secreto", "privado");
    arbol.fEnlace(strDat, "d/secreto");
    const clsIntento intento(arbol, {"a.jpg"});
    EXPECT_EQ(intento.fin.correccion, Correccion::SinCatalogo);
    EXPECT_EQ(intento.fin.error, ENOENT);
    EXPECT_EQ(arbol.fLeer("d/secreto"), "privado");
}

TEST(Correccion, GivesFilesTheNearestTimeOnFatAndTheCatalogueTheDateItself)
{
    struct clsCaso {
        const char *strFrase;
        clsPartesFecha partes;
        clsPartesFecha enDisco;
    };
    const clsZona zona("UTC");
    for (const clsCaso &caso :
         {clsCaso{"an even second", {2009, 7, 15, 12, 0, 0}, {2009, 7, 15, 12, 0, 0}},
          {"an odd second", {2009, 7, 15, 12, 0, 1}, {2009, 7, 15, 12, 0, 0}},
          {"before the first year", {1979, 12, 31, 23, 59, 57}, {1980, 1, 1, 0, 0, 0}},
          {"behind the last year", {2108, 1, 1, 0, 0, 1}, {2107, 12, 31, 23, 59, 58}}}) {
        SCOPED_TRACE(caso.strFrase);
        const clsArbol arbol;
        arbol.fCrear("a.jpg", "foto");
        arbol.fCrear("b.jpg", "otra");
        const clsFecha fecha = fFechaDe(caso.partes).value();
        const std::string strNueva = fRutaCorregida("a.jpg", fecha);
        const std::string strTomada = fRutaCorregida("b.jpg", fecha);
        arbol.fCrear(strTomada, "su nombre");
        arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 4 |@b.jpg|f| 4 |"));
        const clsIntento intento(arbol, {"a.jpg", "b.jpg"}, fecha, fDiscoFat());
        EXPECT_EQ(intento.fin.correccion, Correccion::Hecha);
        EXPECT_TRUE(
            intento.strAvisos.ends_with("/" + strTomada + "\r\n17: El fichero ya existe\n"));
        const int intAno = caso.partes.intAno;
        EXPECT_EQ(fAvisoSinFecha(intento.lstFicheros),
                  intAno == 2009 ? ""
                                 : fTexto(arbol, "No se ha podido poner la fecha a:|@" + strNueva +
                                                     " (El disco no admite esta fecha)|@b.jpg (El "
                                                     "disco no admite esta fecha)"));
        EXPECT_EQ(arbol.fLeer(strNueva) + arbol.fLeer("b.jpg"), "fotootra");
        EXPECT_EQ(arbol.fLeer(strTomada), "su nombre");
        EXPECT_EQ(clsIntacto(arbol, strNueva).lngFecha, fMomento(fFechaDe(caso.enDisco).value()));
        const std::string strFecha = fEscribirFecha(fecha);
        EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, "@" + strNueva + '|' + strFecha +
                                                         "| 4 |@b.jpg|" + strFecha + "| 4 |"));
    }
}

TEST(Correccion, LeavesTheTimeOfWhatALinkLeadsToOutsideTheArchive)
{
    const clsArbol otra;
    const clsArbol arbol;
    otra.fCrear("ajena.jpg", "foto");
    arbol.fEnlace("e.jpg", otra.fRuta("ajena.jpg"));
    arbol.fCrear("b.jpg", "otra");
    arbol.fCrear(strDat, fTexto(arbol, "@e.jpg|f| 4 |@b.jpg|f| 4 |"));
    const clsIntento intento(arbol, {"e.jpg", "b.jpg"});
    EXPECT_EQ(intento.fin.correccion, Correccion::Hecha);
    EXPECT_EQ(intento.strAvisos, "");
    EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, "@~e.jpg|#| 4 |@~b.jpg|#| 4 |"));
    EXPECT_EQ(arbol.fLeer("20090715_e.jpg"), "foto");
    EXPECT_EQ(clsIntacto(otra, "ajena.jpg").lngFecha, clsArbol::lngMomento);
    EXPECT_EQ(fAvisoSinFecha(intento.lstFicheros),
              fTexto(arbol,
                     "No se ha podido poner la fecha a:|@~e.jpg (El enlace lleva fuera de la "
                     "carpeta)"));
}

TEST(Correccion, ListsAsManyFilesAsABoxHasRoomFor)
{
    const auto fLineas = [](std::size_t lngFicheros) {
        const std::vector<clsCorregido> lstFicheros(lngFicheros,
                                                    {"/f/a", {}, true, "/f/~a", EPERM});
        const std::string strAviso = fAvisoSinFecha(lstFicheros);
        EXPECT_TRUE(lngFicheros == 0 ||
                    strAviso.find("\r\n/f/~a (1: Operación no permitida)") != std::string::npos);
        EXPECT_EQ(strAviso.ends_with("\r\n... y 980 más."), lngFicheros == 1000);
        return std::count(strAviso.begin(), strAviso.end(), '\n');
    };
    EXPECT_EQ(fLineas(0), 0);
    EXPECT_EQ(fLineas(1), 1);
    EXPECT_EQ(fLineas(20), 20);
    EXPECT_EQ(fLineas(1000), 21);
}

TEST(Correccion, TouchesNothingWhereTheNewCatalogueHasNoRoom)
{
    struct clsCaso {
        const char *strFrase;
        void (*fPreparar)(clsLlamadas &);
        int intError;
    };
    const clsCaso lstCasos[] = {
        {"a full disk", [](clsLlamadas &disco) { disco.fEscribir = fFalla<ENOSPC>; }, ENOSPC},
        {"a disk that is full when it is flushed",
         [](clsLlamadas &disco) { disco.fVolcar = fFalla<ENOSPC>; }, ENOSPC},
        {"a root that has become read-only",
         [](clsLlamadas &disco) {
             disco.fAbrir = [](int intCarpeta, const char *strRuta, int intModo, mode_t modo) {
                 return (intModo & O_CREAT) == 0
                            ? llamadasReales.fAbrir(intCarpeta, strRuta, intModo, modo)
                            : (errno = EROFS, -1);
             };
         },
         EROFS},
    };
    for (const clsCaso &caso : lstCasos) {
        SCOPED_TRACE(caso.strFrase);
        const clsArbol arbol;
        arbol.fCrear("a.jpg", "foto");
        arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 4 |"));
        clsLlamadas disco = discoQuieto;
        caso.fPreparar(disco);
        const clsIntento intento(arbol, {"a.jpg"}, fechaNueva, disco);
        EXPECT_EQ(intento.fin.correccion, Correccion::Imposible);
        EXPECT_EQ(intento.fin.error, caso.intError);
        EXPECT_EQ(fMotivoSinCatalogo(intento.fin, intento.lstFicheros),
                  fTextoError(caso.intError) + "\r\nNo se ha cambiado ningún fichero.");
        EXPECT_EQ(arbol.fNombres(), (Textos{strDat, "a.jpg"}));
        EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, "@a.jpg|f| 4 |"));
        EXPECT_EQ(clsIntacto(arbol, "a.jpg").lngFecha, clsArbol::lngMomento);
        EXPECT_EQ(clsIntento(arbol, {"a.jpg"}).fin.correccion, Correccion::Hecha);
        EXPECT_EQ(fMotivoSinCatalogo({}, intento.lstFicheros), "");
    }
}

TEST(Correccion, HasItsPlanOnTheDiskBeforeItChangesAFile)
{
    static std::string strHecho; // a file flushed, a folder, a time set
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 4 |"));
    clsLlamadas disco = llamadasReales;
    disco.fVolcar = [](int intFd) {
        struct stat datos {};
        strHecho += fstat(intFd, &datos) == 0 && S_ISDIR(datos.st_mode) ? 'c' : 'a';
        return 0;
    };
    disco.fFechar = [](int intCarpeta, const char *strRuta, const timespec *lstMomentos,
                       int intModo) {
        strHecho += 't';
        return llamadasReales.fFechar(intCarpeta, strRuta, lstMomentos, intModo);
    };
    // Catalogue and journal, then the folder for their names; at the end it again.
    const clsIntento intento(arbol, {"a.jpg"}, fechaNueva, disco);
    EXPECT_EQ(strHecho, "aactc");
    strHecho.clear();
    const clsOtrasLlamadas otras(disco);
    EXPECT_EQ(fDeshacer(arbol.fRaiz(), true).fin.correccion, Correccion::Hecha);
    EXPECT_EQ(strHecho, "aactc");
}

TEST(Correccion, TouchesNothingWhenTheRootCannotBeOpened)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 4 |"));
    clsLlamadas disco = discoQuieto;
    disco.fAbrir = [](int intCarpeta, const char *strRuta, int intModo, mode_t modo) {
        const bool bolRaiz = std::string_view(strRuta).ends_with('/');
        return bolRaiz ? (errno = EACCES, -1)
                       : llamadasReales.fAbrir(intCarpeta, strRuta, intModo, modo);
    };
    const clsIntento intento(arbol, {"a.jpg"}, fechaNueva, disco);
    EXPECT_EQ(intento.fin.correccion, Correccion::Imposible);
    EXPECT_EQ(arbol.fNombres(), (Textos{strDat, "a.jpg"}));
    EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, "@a.jpg|f| 4 |"));
}

TEST(Correccion, CanBeTakenBackBeforeItsCatalogueIsThere)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 4 |"));
    clsLlamadas disco = discoQuieto;
    disco.fRenombrarLibre = [](int intCarpeta, const char *strDe, const char *strA) {
        return std::string_view(strDe).ends_with("/Miravel.dat")
                   ? (errno = EROFS, -1)
                   : llamadasReales.fRenombrarLibre(intCarpeta, strDe, strA);
    };
    const clsIntento intento(arbol, {"a.jpg"}, fechaNueva, disco);
    EXPECT_EQ(intento.fin.correccion, Correccion::SinCatalogo);
    const clsOtrasLlamadas otras(discoQuieto);
    EXPECT_EQ(fDeshacer(arbol.fRaiz(), true).fin.correccion, Correccion::Hecha);
    EXPECT_EQ(arbol.fLeer("a.jpg"), "foto");
    EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, "@a.jpg|f| 4 |"));
}

TEST(Correccion, SaysWhichFilesHaveNewNamesWhenTheCatalogueFailsLater)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "foto");
    arbol.fCrear("b.jpg", "otra");
    arbol.fCrear("20090715_b.jpg", "su nombre");
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 4 |@b.jpg|f| 4 |"));
    clsLlamadas disco = discoQuieto;
    disco.fRenombrarLibre = [](int intCarpeta, const char *strDe, const char *strA) {
        return std::string_view(strDe).ends_with("/Miravel.dat")
                   ? (errno = EROFS, -1)
                   : llamadasReales.fRenombrarLibre(intCarpeta, strDe, strA);
    };
    const clsIntento intento(arbol, {"a.jpg", "b.jpg"}, fechaNueva, disco);
    EXPECT_EQ(intento.fin.correccion, Correccion::SinCatalogo);
    EXPECT_EQ(fMotivoSinCatalogo(intento.fin, intento.lstFicheros),
              fTexto(arbol, "30: Sistema de ficheros de solo lectura|Ya tienen su nombre "
                            "nuevo:|@~a.jpg"));
    EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, "@a.jpg|f| 4 |@b.jpg|f| 4 |"));
    // As soon as it can be written, the catalogue follows. b.jpg has its time already.
    const clsOtrasLlamadas otras(discoQuieto);
    fTerminarCorreccion(arbol.fRaiz());
    EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, "@~a.jpg|#| 4 |@b.jpg|#| 4 |"));
    EXPECT_EQ(arbol.fNombres(),
              (Textos{strGuardado, "20090715_a.jpg", "20090715_b.jpg", strDat, strCopia, "b.jpg"}));
}

TEST(Correccion, IsFinishedByItsJournal)
{
    struct clsCaso {
        const char *strFrase;
        const char *strNombres; ///< "v" the old one is there, "n" the new one, "N" another new one
        const char *strEsperado;
    };
    const std::string strDiario(strFicheroDiario);
    for (const clsCaso &caso : {clsCaso{"renamed", "n", "@~a.jpg|#| 4 |@z|f| 1 |"},
                                {"not renamed", "v", "@a.jpg|f| 4 |@z|f| 1 |"},
                                {"linked only", "vn", "@a.jpg|f| 4 |@z|f| 1 |"},
                                {"the new name is another's", "vN", "@a.jpg|f| 4 |@z|f| 1 |"},
                                {"only another has the new name", "N", "@a.jpg|f| 4 |@z|f| 1 |"},
                                {"gone", "", "@a.jpg|f| 4 |@z|f| 1 |"}}) {
        for (const bool bolApartado : {false, true}) {
            SCOPED_TRACE(testing::Message() << caso.strFrase << ' ' << bolApartado);
            const clsOtrasLlamadas otras(discoQuieto);
            const clsArbol arbol;
            arbol.fCrear("a.jpg", "foto");
            const std::string strViejo = fTexto(arbol, "@a.jpg|f| 4 |@z|f| 1 |");
            arbol.fCrear(bolApartado ? strCopia : strDat, strViejo);
            const auto datos = fVer(arbol.fRuta("a.jpg"));
            ASSERT_EQ(fEscribirDiario(
                          arbol.fRaiz(),
                          {strCopia, {{"a.jpg", "20090715_a.jpg", fechaNueva, *datos, {4, 5, 6}}}}),
                      0);
            const std::string_view strNombres = caso.strNombres;
            const std::string strNueva = arbol.fRuta("20090715_a.jpg");
            if (strNombres.find('n') != std::string_view::npos) {
                ASSERT_EQ(link(arbol.fRuta("a.jpg").c_str(), strNueva.c_str()), 0);
            } else if (strNombres.find('N') != std::string_view::npos) {
                arbol.fCrear("20090715_a.jpg", "otra foto");
            }
            if (!strNombres.starts_with('v')) {
                ASSERT_EQ(unlink(arbol.fRuta("a.jpg").c_str()), 0);
            }
            Textos lstNombres = arbol.fNombres();
            fTerminarCorreccion(arbol.fRaiz());
            EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, caso.strEsperado));
            std::erase(lstNombres, strDiario);
            if (strNombres == "n") {
                lstNombres.emplace_back(strGuardado); // it can be taken back
            }
            lstNombres.emplace_back(bolApartado ? strDat : strCopia);
            std::sort(lstNombres.begin(), lstNombres.end());
            if (!bolApartado && arbol.fLeer(strDat) == strViejo) {
                std::erase(lstNombres, strCopia); // nothing to change, no backup
            }
            EXPECT_EQ(arbol.fNombres(), lstNombres);
        }
    }
}

TEST(Correccion, LeavesAJournalAloneThatIsNoneOrAnotherMiravels)
{
    const clsArbol arbol;
    const std::string strDiario(strFicheroDiario);
    arbol.fCrear("a.jpg", "foto");
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 4 |"));
    arbol.fCrear(strDiario, "../a.jpg\r\n/b.jpg\r\n");
    const Textos lstNombres = arbol.fNombres();
    fTerminarCorreccion(arbol.fRaiz());
    EXPECT_EQ(arbol.fNombres(), lstNombres);
    EXPECT_EQ(clsIntento(arbol, {"a.jpg"}).fin.correccion, Correccion::Hecha);
    EXPECT_EQ(arbol.fNombres(),
              (Textos{strGuardado, "20090715_a.jpg", strDat, strCopia})); // in its place
    ASSERT_EQ(
        fEscribirDiario(arbol.fRaiz(),
                        {strCopia, {{"20090715_a.jpg", "b.jpg", fechaNueva, {{4, 0, 0}, {}}, {}}}}),
        0);
    ASSERT_EQ(rename(arbol.fRuta("20090715_a.jpg").c_str(), arbol.fRuta("b.jpg").c_str()), 0);
    {
        const clsCerrojoArchivo cerrojo(arbol.fRaiz());
        fTerminarCorreccion(arbol.fRaiz());
        EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, "@~a.jpg|#| 4 |"));
    }
    // The next correction finishes it first: its own journal takes the place of that one.
    EXPECT_EQ(clsIntento(arbol, {}).fin.correccion, Correccion::Hecha);
    EXPECT_EQ(arbol.fLeer(strDat), fTexto(arbol, "@b.jpg|#| 4 |"));
}

// --- A date for each file ---

/// Corrects these files, and ends after so many.
clsFinCorreccion fCorregirHasta(const clsArbol &arbol, std::vector<clsCorregido> &lstFicheros,
                                int intPasos, const clsLlamadas &disco = discoQuieto)
{
    const clsOtrasLlamadas otras(disco);
    for (clsCorregido &fichero : lstFicheros) {
        fichero.strFilePath = arbol.fRuta(fichero.strFilePath);
    }
    return fCorregir(arbol.fRaiz(), true, lstFicheros, {}, [&] { return --intPasos > 0; });
}

constexpr int intTodos = 1000;
const clsFecha fechaOtra = fFechaDe({1999, 12, 31, 23, 59, 58}).value_or(clsFecha{});

TEST(Correccion, GivesEachFileItsOwnDateAndLeavesNamesAloneThatAreToStay)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    arbol.fCrear("c/b.jpg");
    arbol.fCrear("queda.jpg");
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 1 |@c/b.jpg|f| 1 |@queda.jpg|f| 1 |"));
    std::vector<clsCorregido> lstFicheros = {
        {"a.jpg", fechaOtra}, {"c/b.jpg", fechaNueva}, {"queda.jpg", fechaOtra, false}};
    EXPECT_EQ(fCorregirHasta(arbol, lstFicheros, intTodos).correccion, Correccion::Hecha);
    EXPECT_EQ(arbol.fLeer(strDat),
              fTexto(arbol, "@19991231_a.jpg|1999/12/31 23:59:58| 1 |@c/~b.jpg|"
                            "#| 1 |@queda.jpg|1999/12/31 23:59:58| 1 |"));
    EXPECT_EQ(fFechaLocal(clsIntacto(arbol, "19991231_a.jpg").lngFecha), fechaOtra);
    EXPECT_EQ(fFechaLocal(clsIntacto(arbol, "c/20090715_b.jpg").lngFecha), fechaNueva);
    EXPECT_EQ(fFechaLocal(clsIntacto(arbol, "queda.jpg").lngFecha), fechaOtra);
    EXPECT_TRUE(lstFicheros[2].fBien());
    EXPECT_EQ(lstFicheros[2].strFilePathNew, arbol.fRuta("queda.jpg"));
}

TEST(Correccion, EndsBetweenTwoFilesWithWhatIsDoneInTheCatalogue)
{
    const clsArbol arbol;
    std::vector<clsCorregido> lstFicheros;
    for (const char *const strNombre : {"a.jpg", "b.jpg", "c.jpg", "d.jpg"}) {
        arbol.fCrear(strNombre);
        lstFicheros.push_back({strNombre, fechaNueva});
    }
    arbol.fCrear(strDat, fTexto(arbol, "@d.jpg|f| 1 |@c.jpg|f| 1 |@b.jpg|f| 1 |@a.jpg|f| 1 |"));
    EXPECT_EQ(fCorregirHasta(arbol, lstFicheros, 2).correccion, Correccion::Hecha);
    EXPECT_EQ(arbol.fLeer(strDat),
              fTexto(arbol, "@d.jpg|f| 1 |@c.jpg|f| 1 |@~b.jpg|#| 1 |@~a.jpg|#| 1 |"));
    EXPECT_EQ(arbol.fNombres(), (Textos{strGuardado, "20090715_a.jpg", "20090715_b.jpg", strDat,
                                        strCopia, "c.jpg", "d.jpg"}));
    EXPECT_EQ(clsIntacto(arbol, "c.jpg").lngFecha, clsArbol::lngMomento);
    EXPECT_TRUE(lstFicheros[1].fBien() && !lstFicheros[2].bolTratado);
    EXPECT_EQ(fInforme(lstFicheros, "corregido"), "2 corregidos.\r\nSin empezar: 2.");
    EXPECT_EQ(fLeerDiario(arbol.fRaiz(), strGuardado)->lstAnotaciones.size(), 2U);
}

TEST(Correccion, KeepsAJournalOfWhatBecameOfEachFile)
{
    const clsArbol arbol;
    const clsArbol otro;
    otro.fCrear("ajena.jpg");
    arbol.fCrear("a.jpg", "foto");
    arbol.fCrear("b.jpg", "otra");
    arbol.fCrear("20090715_b.jpg", "su nombre");
    arbol.fEnlace("e.jpg", otro.fRuta("ajena.jpg"));
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 4 |"));
    auto antes = fVer(arbol.fRuta("b.jpg"));
    antes->bolArchivo = false; // is not written down
    std::vector<clsCorregido> lstFicheros = {{"a.jpg", fechaNueva},
                                             {"b.jpg", fechaNueva},
                                             {"e.jpg", fechaNueva},
                                             {"falta.jpg", fechaNueva},
                                             {"a\nb.jpg", fechaNueva}};
    ASSERT_EQ(fCorregirHasta(arbol, lstFicheros, intTodos).correccion, Correccion::Hecha);
    const auto diario = fLeerDiario(arbol.fRaiz(), strGuardado);
    ASSERT_TRUE(diario);
    EXPECT_EQ(diario->strCopia, strCopia);
    const std::int64_t lngNuevo = fMomento(fechaNueva).value_or(0);
    ASSERT_EQ(diario->lstAnotaciones.size(), 4U); // no catalogue can have the last one
    const auto fEs = [&](std::size_t lng, const char *strA, std::int64_t lngDespues) {
        const clsAnotacion &anotacion = diario->lstAnotaciones[lng];
        EXPECT_EQ(anotacion.strA, strA);
        EXPECT_EQ(anotacion.despues.lngSegundos, lngDespues) << strA;
    };
    fEs(0, "20090715_a.jpg", lngNuevo);
    fEs(1, "b.jpg", lngNuevo); // could not be renamed
    EXPECT_EQ(diario->lstAnotaciones[1].antes, *antes);
    fEs(2, "20090715_e.jpg", clsArbol::lngMomento); // could not get its time
    fEs(3, "falta.jpg", 0);
    EXPECT_TRUE(diario->lstAnotaciones[3].fIntacta());
}

TEST(Correccion, KeepsNoJournalOfNothingAndNoneUnderATakenName)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg");
    arbol.fCrear(strDat, fTexto(arbol, "@a.jpg|f| 1 |"));
    arbol.fCrear(strGuardado, "de otro");
    EXPECT_EQ(clsIntento(arbol, {}).fin.strCopia, arbol.fRuta("Miravel.dat.20210101000000"));
    EXPECT_EQ(arbol.fNombres(),
              (Textos{strGuardado, strDat, "Miravel.dat.20210101000000", "a.jpg"}));
    EXPECT_EQ(clsIntento(arbol, {"a.jpg"}).fin.strCopia, arbol.fRuta("Miravel.dat.20210101000001"));
    EXPECT_TRUE(fLeerDiario(arbol.fRaiz(), ".Miravel.diario.20210101000001"));
    EXPECT_EQ(arbol.fLeer(strGuardado), "de otro");
}

TEST(Correccion, ReportsInOneText)
{
    const clsCorregido bien{"/f/a", {}, true, "/f/~a", {}, {}, true};
    const clsCorregido malo{"/f/b", {}, true, "/f/b", {}, EEXIST, true};
    const clsCorregido sinFecha{"/f/c", {}, true, "/f/~c", EXDEV, {}, true};
    const clsCorregido sinEmpezar{"/f/d"};
    std::vector<clsCorregido> lstMuchos(3160, bien);
    EXPECT_EQ(fInforme({}, "corregido"), "0 corregidos.");
    EXPECT_EQ(fInforme({bien}, "deshecho"), "1 deshecho.");
    EXPECT_EQ(fInforme({bien, malo, sinFecha}, "corregido"),
              "1 corregido, 2 no:\r\n/f/b (17: El fichero ya existe)\r\n"
              "/f/~c (El enlace lleva fuera de la carpeta)");
    lstMuchos.insert(lstMuchos.end(), {sinEmpezar, malo});
    EXPECT_EQ(fInforme(lstMuchos, "corregido"),
              "3.160 corregidos, 1 no:\r\n/f/b (17: El fichero ya existe)\r\nSin empezar: 1.");
}

} // namespace
