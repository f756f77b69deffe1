// Every call of the system fails once, and every call from then on: whatever is under way,
// nothing may be lost by it.

#include "browse/copia.h"
#include "catalogue/constructor.h"
#include "catalogue/diario.h"
#include "catalogue/mudanza.h"
#include "dates/correccion.h"
#include "dates/deshacer.h"
#include "shared/ajustes.h"
#include "sistema/reemplazo.h"
#include "soporte/arbol.h"
#include "soporte/fallos.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Textos = std::vector<std::string>;
using clsPlan = clsFallos::clsPlan;

constexpr const char *strDat = "Miravel.dat";
constexpr const char *strIni = "Miravel.ini";

/// The disk without the waiting for it.
clsLlamadas fSinEspera(clsLlamadas disco)
{
    disco.fVolcar = [](int) { return 0; };
    return disco;
}

/// One that has links, but no renaming that refuses a taken name.
clsLlamadas fConEnlaces()
{
    clsLlamadas disco = fSinEspera(llamadasReales);
    disco.fRenombrarLibre = fFalla<EINVAL>;
    return disco;
}

/// One that carries bytes in small pieces, or has them carried.
template <bool bolTraslada> clsLlamadas fAPedazos()
{
    static constexpr std::size_t lngPedazo = 900;
    clsLlamadas disco = fSinEspera(llamadasReales);
    disco.fClonar = fFalla<EOPNOTSUPP>;
    disco.fEscribir = [](int intFd, const void *bytDatos, std::size_t lngBytes) {
        return llamadasReales.fEscribir(intFd, bytDatos,
                                        lngBytes < lngPedazo ? lngBytes : lngPedazo);
    };
    disco.fTrasladar = [](int intDe, int intA, std::size_t lngBytes) -> ssize_t {
        return bolTraslada ? llamadasReales.fTrasladar(intDe, intA,
                                                       lngBytes < lngPedazo ? lngBytes : lngPedazo)
                           : (errno = EXDEV, -1);
    };
    return disco;
}

/// Tries something with the first call failing, then the second, until none is left to fail.
/// @param fProbar makes the attempt and looks at what it has left.
void fConCadaFallo(const clsLlamadas &base, int intMinimo,
                   const std::function<void(const clsPlan &)> &fProbar)
{
    struct clsModo {
        int intError;
        bool bolSiguen;
    };
    for (const clsModo &modo :
         {clsModo{EIO, false}, {EIO, true}, {ENOSPC, false}, {EACCES, true}, {EINTR, false}}) {
        int intPrimera = 0;
        do {
            const clsPlan plan{++intPrimera, modo.bolSiguen, modo.intError, base};
            SCOPED_TRACE(testing::Message() << "error " << modo.intError << " at " << intPrimera
                                            << (modo.bolSiguen ? " and behind" : ""));
            fProbar(plan);
        } while (clsFallos::fHechas() >= intPrimera && !testing::Test::HasFailure());
        ASSERT_GT(intPrimera, intMinimo);
    }
}

/// Names in a folder. Temporary files of one that is replaced count only where the call that
/// deletes them could be made.
Textos fNombres(const clsArbol &arbol, const clsPlan &plan, const std::string &strReemplazado,
                const std::string &strCarpeta = {})
{
    Textos lstNombres = arbol.fNombres(strCarpeta);
    if (plan.bolSiguen) {
        std::erase_if(lstNombres, [&](const std::string &strNombre) {
            return clsReemplazo::fEsTemporal(strNombre, strReemplazado);
        });
    }
    return lstNombres;
}

std::time_t fFecha(const clsArbol &arbol, const std::string &strNombre)
{
    struct stat datos {};
    EXPECT_EQ(lstat(arbol.fRuta(strNombre).c_str(), &datos), 0) << strNombre;
    return datos.st_mtime;
}

// --- Correction ---

const clsFecha fechaNueva = fFechaDe({2009, 7, 15, 12, 0, 0}).value_or(clsFecha{});

/// A record of each file, of 4 bytes, with the date that the text gives.
std::string fCatalogo(const Textos &lstRutas, const std::string &strFecha)
{
    std::string strTexto;
    for (const std::string &strRuta : lstRutas) {
        strTexto += strRuta + "\r\n" + strFecha + "\r\n 4 \r\n";
    }
    return strTexto;
}

/// The catalogue is whole: the old one, the new one, or gone behind its backup.
void fExigirCatalogo(const clsArbol &arbol, const clsFinCorreccion &fin, const Textos &lstNombres,
                     const std::string &strViejo, const std::string &strNuevo)
{
    const auto fEsCopia = [](const std::string &strNombre) {
        return strNombre.starts_with("Miravel.dat.");
    };
    const auto copia = std::find_if(lstNombres.begin(), lstNombres.end(), fEsCopia);
    const bool bolCopia = copia != lstNombres.end();
    const bool bolEsta = std::count(lstNombres.begin(), lstNombres.end(), strDat) == 1;
    const std::string strEsta = arbol.fLeer(strDat);
    EXPECT_TRUE(!bolCopia || arbol.fLeer(*copia) == strViejo);
    EXPECT_TRUE(bolEsta ? strEsta == strViejo || (strEsta == strNuevo && bolCopia) : bolCopia);
    EXPECT_EQ(fin.correccion == Correccion::Hecha, !fin.error);
    EXPECT_TRUE(fin.correccion != Correccion::Hecha || strEsta == strNuevo);
    EXPECT_TRUE(fin.strCopia.empty() || (bolCopia && fin.strCopia == arbol.fRuta(*copia)));
}

/// Without the journal, which stays as long as the catalogue is not finished.
Textos fSinDiario(Textos lstNombres, const clsPlan &plan)
{
    std::erase_if(lstNombres, [&](const std::string &strNombre) {
        return strNombre.starts_with(strFicheroDiario) ||
               (plan.bolSiguen && clsReemplazo::fEsTemporal(strNombre, strFicheroDiario));
    });
    return lstNombres;
}

void fProbarCorreccion(const clsPlan &plan)
{
    const clsArbol arbol;
    Textos lstRutas;
    std::vector<clsCorregido> lstFicheros;
    for (const char *const strNombre : {"a.jpg", "b.jpg"}) {
        arbol.fCrear(strNombre, std::string("de ") + strNombre[0]);
        lstRutas.push_back(arbol.fRuta(strNombre));
        lstFicheros.push_back({lstRutas.back(), fechaNueva});
    }
    const std::string strViejo = fCatalogo(lstRutas, "f");
    arbol.fCrear(strDat, strViejo);
    clsFinCorreccion fin;
    {
        const clsFallos fallos(plan);
        fin = fCorregir(arbol.fRaiz(), true, lstFicheros, {});
    }
    const Textos lstNombres = fSinDiario(fNombres(arbol, plan, strDat), plan);
    std::size_t lngFotos = 0;
    Textos lstNuevas;
    for (clsCorregido &fichero : lstFicheros) {
        if (fin.correccion == Correccion::Imposible) {
            fichero.strFilePathNew = fichero.strFilePath;
            fichero.errorFecha = fichero.errorNombre = fin.error; // nothing was touched
        }
        lstNuevas.push_back(fichero.strFilePathNew);
        const std::string strNombre = fichero.strFilePathNew.substr(arbol.fRaiz().size());
        const std::string strBase = fichero.strFilePath.substr(arbol.fRaiz().size());
        EXPECT_EQ(arbol.fLeer(strNombre), std::string("de ") + strBase[0]);
        EXPECT_EQ(fFecha(arbol, strNombre),
                  fichero.errorFecha ? clsArbol::lngMomento : fMomento(fechaNueva));
        EXPECT_EQ(fichero.strFilePathNew == fichero.strFilePath, bool(fichero.errorNombre));
        // A name that could not be taken away again leads to the same file.
        lngFotos += std::count(lstNombres.begin(), lstNombres.end(), strBase) +
                    std::count(lstNombres.begin(), lstNombres.end(), "20090715_" + strBase);
        EXPECT_TRUE(plan.bolSiguen || lngFotos == lstNuevas.size());
    }
    fExigirCatalogo(arbol, fin, lstNombres, strViejo, fCatalogo(lstNuevas, "2009/07/15 12:00:00"));
    const bool bolCatalogo = std::count(lstNombres.begin(), lstNombres.end(), strDat) == 1;
    const bool bolCopia = lstNombres.size() > lngFotos + (bolCatalogo ? 1 : 0);
    EXPECT_EQ(lstNombres.size(), lngFotos + (bolCatalogo ? 1 : 0) + (bolCopia ? 1 : 0));
    // The next start can write again.
    fTerminarCorreccion(arbol.fRaiz());
    for (const std::string &strRuta : lstNuevas) {
        EXPECT_TRUE(arbol.fLeer(strDat).find(strRuta + "\r\n") != std::string::npos) << strRuta;
    }
}

TEST(Fallos, OfACorrectionLoseNoFileNoNameAndNoCatalogue)
{
    fConCadaFallo(fSinEspera(llamadasReales), 20, fProbarCorreccion);
    fConCadaFallo(fConEnlaces(), 20, fProbarCorreccion);
    fConCadaFallo(fSinEspera(fDiscoFat()), 20, fProbarCorreccion);
}

std::int64_t lngQuedan = 0; ///< bytes that the disk has room for

/// Only what makes a file longer takes room.
ssize_t fEscribirSiCabe(int intFd, const void *bytDatos, std::size_t lngBytes)
{
    struct stat datos {};
    EXPECT_EQ(fstat(intFd, &datos), 0);
    const std::int64_t lngViejos = datos.st_size - lseek(intFd, 0, SEEK_CUR);
    const auto lngCaben = std::min(static_cast<std::int64_t>(lngBytes), lngViejos + lngQuedan);
    lngQuedan -= std::max<std::int64_t>(lngCaben - lngViejos, 0);
    return lngCaben > 0
               ? llamadasReales.fEscribir(intFd, bytDatos, static_cast<std::size_t>(lngCaben))
               : (errno = ENOSPC, -1);
}

TEST(Fallos, OfAFullDiskLeaveACorrectionUndoneOrDone)
{
    clsLlamadas disco = fSinEspera(llamadasReales);
    disco.fEscribir = fEscribirSiCabe;
    int intNiveles = 0;
    for (Correccion correccion = Correccion::Imposible; correccion != Correccion::Hecha;) {
        SCOPED_TRACE(intNiveles);
        const clsArbol arbol;
        arbol.fCrear("a.jpg", "foto");
        arbol.fCrear("b.jpg", "otra");
        arbol.fCrear("20090715_b.jpg", "su nombre"); // so that the catalogue is written twice
        const Textos lstRutas = {arbol.fRuta("a.jpg"), arbol.fRuta("b.jpg")};
        arbol.fCrear(strDat, fCatalogo(lstRutas, "f"));
        std::vector<clsCorregido> lstFicheros = {{lstRutas[0], fechaNueva},
                                                 {lstRutas[1], fechaNueva}};
        const Textos lstNombres = arbol.fNombres();
        lngQuedan = intNiveles++;
        {
            const clsOtrasLlamadas otras(disco);
            correccion = fCorregir(arbol.fRaiz(), true, lstFicheros, {}).correccion;
        }
        ASSERT_NE(correccion, Correccion::SinCatalogo); // once begun, it has its room
        if (correccion == Correccion::Imposible) {
            ASSERT_EQ(arbol.fNombres(), lstNombres);
            ASSERT_EQ(fFecha(arbol, "a.jpg"), clsArbol::lngMomento);
            ASSERT_EQ(arbol.fLeer(strDat), fCatalogo(lstRutas, "f"));
        }
        ASSERT_LT(intNiveles, 10'000);
    }
    RecordProperty("levels", intNiveles);
    EXPECT_GT(intNiveles, 200);
}

/// Two corrected files, whose names and times can be taken back.
struct clsCorregida {
    explicit clsCorregida(const clsArbol &arbolSuyo) : arbol(arbolSuyo)
    {
        std::vector<clsCorregido> lstFicheros;
        for (const char *const strNombre : {"a.jpg", "b.jpg"}) {
            arbol.fCrear(strNombre, std::string("de ") + strNombre[0]);
            lstRutas.push_back(arbol.fRuta(strNombre));
            lstFicheros.push_back({lstRutas.back(), fechaNueva});
        }
        strViejo = fCatalogo(lstRutas, fEscribirFecha(fFechaLocal(clsArbol::lngMomento)));
        arbol.fCrear(strDat, strViejo);
        const clsLlamadas disco = fSinEspera(llamadasReales);
        const clsOtrasLlamadas otras(disco);
        EXPECT_EQ(fCorregir(arbol.fRaiz(), true, lstFicheros, {}).correccion, Correccion::Hecha);
        strNuevo = arbol.fLeer(strDat);
    }
    /// Everything is as it was before, but for a backup.
    void fExigirComoAntes(const clsPlan &plan) const
    {
        EXPECT_EQ(arbol.fLeer(strDat), strViejo);
        for (const char *const strNombre : {"a.jpg", "b.jpg"}) {
            EXPECT_EQ(arbol.fLeer(strNombre), std::string("de ") + strNombre[0]);
            EXPECT_EQ(fFecha(arbol, strNombre), clsArbol::lngMomento);
        }
        Textos lstNombres = fSinDiario(fNombres(arbol, plan, strDat), plan);
        std::erase_if(lstNombres,
                      [](const std::string &str) { return str.starts_with("Miravel.dat."); });
        EXPECT_EQ(lstNombres, (Textos{strDat, "a.jpg", "b.jpg"}));
        EXPECT_TRUE(fCorreccionesHechas(arbol.fRaiz()).empty());
    }

    const clsArbol &arbol;
    Textos lstRutas;
    std::string strViejo; ///< catalogue
    std::string strNuevo;
};

void fProbarVuelta(const clsPlan &plan)
{
    const clsArbol arbol;
    const clsCorregida corregida(arbol);
    clsFinDeshacer deshecha;
    {
        const clsFallos fallos(plan);
        deshecha = fDeshacer(arbol.fRaiz(), true);
    }
    const std::string strQueda = arbol.fLeer(strDat);
    EXPECT_EQ(std::count(strQueda.begin(), strQueda.end(), '\n'), 6) << strQueda;
    EXPECT_TRUE(deshecha.fin.correccion != Correccion::Imposible || strQueda == corregida.strNuevo);
    for (const clsCorregido &fichero : deshecha.lstFicheros) {
        const std::string strNombre = fichero.strFilePathNew.substr(arbol.fRaiz().size());
        EXPECT_EQ(arbol.fLeer(strNombre).substr(0, 3), "de ") << strNombre;
        EXPECT_TRUE(deshecha.fin.error || strQueda.find(strNombre) != std::string::npos);
        EXPECT_TRUE(fichero.fBien() || deshecha.bolPendiente);
    }
    // What could not be done can be done again.
    const clsLlamadas disco = fSinEspera(llamadasReales);
    const clsOtrasLlamadas otras(disco);
    const clsFinDeshacer otra = fDeshacer(arbol.fRaiz(), true);
    EXPECT_TRUE(otra.fin.correccion == Correccion::Hecha ||
                (otra.fin.correccion == Correccion::Ninguna && !deshecha.bolPendiente));
    corregida.fExigirComoAntes(plan);
}

TEST(Fallos, OfTakingACorrectionBackLoseNothingAndItCanBeDoneAgain)
{
    fConCadaFallo(fSinEspera(llamadasReales), 40, fProbarVuelta);
    fConCadaFallo(fConEnlaces(), 40, fProbarVuelta);
    fConCadaFallo(fSinEspera(fDiscoFat()), 40, fProbarVuelta);
}

TEST(Fallos, OfAFullDiskLeaveACorrectionAsItIsOrTakeItBack)
{
    clsLlamadas disco = fSinEspera(llamadasReales);
    disco.fEscribir = fEscribirSiCabe;
    int intNiveles = 0;
    for (Correccion correccion = Correccion::Imposible; correccion != Correccion::Hecha;) {
        SCOPED_TRACE(intNiveles);
        const clsArbol arbol;
        const clsCorregida corregida(arbol);
        const Textos lstNombres = arbol.fNombres();
        lngQuedan = intNiveles++;
        {
            const clsOtrasLlamadas otras(disco);
            correccion = fDeshacer(arbol.fRaiz(), true).fin.correccion;
        }
        ASSERT_NE(correccion, Correccion::SinCatalogo); // once begun, it has its room
        if (correccion == Correccion::Imposible) {
            ASSERT_EQ(arbol.fNombres(), lstNombres);
            ASSERT_EQ(arbol.fLeer(strDat), corregida.strNuevo);
        } else {
            corregida.fExigirComoAntes({});
        }
        ASSERT_LT(intNiveles, 10'000);
    }
    EXPECT_GT(intNiveles, 200);
}

// --- Copies ---

void fProbarCopia(const clsPlan &plan)
{
    const clsArbol arbol;
    arbol.fCrear("a.mov", std::string(3000, 'a'));
    EXPECT_EQ(truncate(arbol.fRuta("a.mov").c_str(), 1 << 16), 0); // a hole at its end
    arbol.fCrear("d/x.jpg", "se manda", 1);
    arbol.fCrear("x.jpg", "otra", 2);
    arbol.fCrear("d/a.mov", "viejo");
    const std::string strNuevo = arbol.fLeer("a.mov");
    const std::time_t lngFecha = fFecha(arbol, "a.mov");
    clsFinCopia fin;
    {
        const clsFallos fallos(plan);
        fin = fCopiarLista({arbol.fRuta("a.mov"), arbol.fRuta("x.jpg"), arbol.fRuta("d/x.jpg")},
                           fDestinoEn(arbol.fRuta("d")), [](int) { return true; });
    }
    // The second may never be copied: it would take the place of the third.
    ASSERT_TRUE(fin.fallo);
    const clsError error = fin.fallo->error;
    EXPECT_TRUE(error == plan.intError || (error == EEXIST && fin.lngHechas == 1))
        << error.fNumero();
    EXPECT_EQ(arbol.fLeer("d/x.jpg") + arbol.fLeer("x.jpg"), "se mandaotra");
    EXPECT_TRUE(arbol.fLeer("a.mov") == strNuevo);
    EXPECT_TRUE(arbol.fLeer("d/a.mov") == (fin.lngHechas == 1 ? strNuevo : "viejo"));
    EXPECT_TRUE(fin.lngHechas == 0 || fFecha(arbol, "d/a.mov") == lngFecha);
    EXPECT_EQ(fNombres(arbol, plan, "a.mov", "d"), (Textos{"a.mov", "x.jpg"}));
    EXPECT_EQ(arbol.fNombres(), (Textos{"a.mov", "d", "x.jpg"}));
}

TEST(Fallos, OfACopyLeaveTheOldFileOrAWholeCopy)
{
    fConCadaFallo(fAPedazos<true>(), 20, fProbarCopia);
    fConCadaFallo(fAPedazos<false>(), 20, fProbarCopia);
}

// --- The catalogue ---

/// Lets every build run to its end and counts what it was told.
class clsContador : public clsObservador {
public:
    void fCarpeta(const std::string &) override {}
    void fError(clsError) override { ++intErrores; }
    bool fSeguir() override { return true; }
    int intErrores = 0;
};

/// Whether a catalogue consists of whole records of files that there are.
bool fEntero(const clsArbol &arbol, const std::string &strBytes, std::ptrdiff_t &lngRegistros)
{
    lngRegistros = std::count(strBytes.begin(), strBytes.end(), '\n') / 3;
    bool bolEntero = strBytes.empty() || strBytes.ends_with(" \r\n");
    for (std::size_t lng = strBytes.find(arbol.fRaiz()); lng != std::string::npos;
         lng = strBytes.find(arbol.fRaiz(), lng + 1)) {
        const std::string strRuta = strBytes.substr(lng, strBytes.find("\r\n", lng) - lng);
        bolEntero = bolEntero && access(strRuta.c_str(), F_OK) == 0;
    }
    return bolEntero && std::count(strBytes.begin(), strBytes.end(), '\n') % 3 == 0;
}

void fProbarConstruccion(const clsPlan &plan, const std::string &strViejo)
{
    const clsArbol arbol;
    arbol.fCrear("a.jpg", "una");
    arbol.fCrear("c/b.jpg", "otra");
    arbol.fEnlace("c/e.jpg", "b.jpg");
    arbol.fCrear("c/h/c.jpg");
    if (!strViejo.empty()) {
        arbol.fCrear(strDat, strViejo);
    }
    clsContador contador;
    clsConstruccion fin;
    {
        const clsFallos fallos(plan);
        fin = fConstruir(arbol.fRaiz(), contador, 1);
    }
    std::ptrdiff_t lngRegistros = 0;
    const std::string strQueda = arbol.fLeer(strDat);
    const bool bolNuevo = strQueda != strViejo;
    EXPECT_TRUE(!bolNuevo || fEntero(arbol, strQueda, lngRegistros)) << strQueda;
    EXPECT_TRUE(bolNuevo || fin.construccion != Construccion::Hecha);
    EXPECT_TRUE(!bolNuevo || fin.construccion != Construccion::SinEscribir);
    EXPECT_TRUE(fin.construccion == Construccion::Hecha || contador.intErrores > 0 || fin.error);
    // What was left out was told.
    EXPECT_TRUE(!bolNuevo || contador.intErrores > 0 || lngRegistros >= 4) << strQueda;
    EXPECT_EQ(arbol.fLeer("a.jpg") + arbol.fLeer("c/b.jpg"), "unaotra");
    Textos lstNombres = fNombres(arbol, plan, strDat);
    std::erase(lstNombres, strDat);
    EXPECT_EQ(lstNombres, (Textos{"a.jpg", "c"}));
}

TEST(Fallos, OfABuildLeaveTheOldCatalogueOrAWholeOne)
{
    const clsLlamadas disco = fSinEspera(llamadasReales);
    fConCadaFallo(disco, 30, [](const clsPlan &plan) { fProbarConstruccion(plan, "viejo"); });
    fConCadaFallo(disco, 30, [](const clsPlan &plan) { fProbarConstruccion(plan, ""); });
}

void fProbarMudanza(const clsPlan &plan)
{
    const clsArbol arbol;
    const std::string strViejo = fCatalogo({"/m/a.jpg", "/n/b.jpg"}, "f");
    arbol.fCrear(strDat, strViejo);
    clsError error;
    {
        const clsFallos fallos(plan);
        error = fMudarCatalogo(arbol.fRuta(strDat), {"/m/", arbol.fRaiz()});
    }
    const std::string strNuevo = fCatalogo({arbol.fRuta("a.jpg"), "/n/b.jpg"}, "f");
    const std::string strQueda = arbol.fLeer(strDat);
    EXPECT_TRUE(strQueda == strNuevo || (error && strQueda == strViejo)) << strQueda;
    EXPECT_EQ(fNombres(arbol, plan, strDat), Textos{strDat});
}

TEST(Fallos, OfTakingAMovedArchiveOverLeaveTheOldCatalogueOrTheNewOne)
{
    fConCadaFallo(fSinEspera(llamadasReales), 8, fProbarMudanza);
}

// --- Settings ---

void fProbarAjustes(const clsPlan &plan)
{
    const clsArbol arbol;
    arbol.fCrear(strIni, "; nota\r\n[GENERAL]\r\nANCHO=7\r\n");
    {
        const clsFallos fallos(plan);
        clsAjustes ajustes(arbol.fRuta(strIni), true);
        const std::string strAncho = ajustes.fLeerIni("GENERAL", "ANCHO", "3000");
        EXPECT_TRUE(strAncho == "7" || strAncho == "3000");
        ajustes.fGuardarIni("GENERAL", "SELEC", "/f");
        ajustes.fEsperar();
    }
    const std::string strQueda = arbol.fLeer(strIni);
    EXPECT_TRUE(strQueda == "; nota\r\n[GENERAL]\r\nANCHO=7\r\n" ||
                strQueda == "; nota\r\n[GENERAL]\r\nANCHO=7\r\nSELEC=/f\r\n")
        << strQueda;
    EXPECT_EQ(fNombres(arbol, plan, strIni), Textos{strIni});
}

TEST(Fallos, OfTheSettingsLoseNoKey)
{
    fConCadaFallo(fSinEspera(llamadasReales), 10, fProbarAjustes);
}

} // namespace
