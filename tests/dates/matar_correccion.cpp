// Kills corrections of 50 files half-way, and the taking back of such, and looks at what is left.
//
//   matar_correccion [points]
//
// A child process works; SIGKILL ends it before the k-th system call that changes the disk, or
// in the middle of a write. Or the power goes there, and takes along what was not flushed. The
// points are spread over the whole correction; 0 takes all there are. The kill comes from inside,
// so that a point that fails once fails every time.

#include "catalogue/constructor.h"
#include "catalogue/diario.h"
#include "catalogue/registro.h"
#include "dates/correccion.h"
#include "dates/deshacer.h"
#include "sistema/reemplazo.h"
#include "soporte/arbol.h"
#include "soporte/corte.h"
#include "soporte/fallos.h"
#include "soporte/proceso.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <optional>
#include <set>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int intFicheros = 50;
constexpr long lngNanosegundos = 123'456'700; // of their times
constexpr const char *strCopiaVieja = "Miravel.dat.20000101000000";
const clsFecha fechaNueva = fFechaDe({2009, 7, 15, 12, 0, 0}).value_or(clsFecha{});

int intPaso = 0;   // points passed in this process
int intMuerte = 0; // the one to die at; 0: none
int intFallos = 0;
int intPunto = 0;            // the one the correction was killed at
std::optional<Olvido> corte; // whether the power goes there, and what with it

/// The disk that is worked on.
const clsLlamadas &fDisco() { return corte ? fDiscoOlvidadizo() : llamadasReales; }

void fPunto()
{
    if (++intPaso == intMuerte) {
        if (corte) {
            fCortarLuz(*corte);
        }
        kill(getpid(), SIGKILL);
    }
}

/// A primitive that may be the last one. What is killed behind it is killed before the next.
template <auto fMiembro, class... Argumentos> auto fMortal(Argumentos... argumentos)
{
    fPunto();
    return (fDisco().*fMiembro)(argumentos...);
}

ssize_t fEscribirAMedias(int intFd, const void *bytDatos, std::size_t lngBytes)
{
    fPunto();
    const bool bolUltimo = intPaso + 1 == intMuerte;
    const ssize_t lngEscritos =
        fDisco().fEscribir(intFd, bytDatos, bolUltimo ? lngBytes / 2 : lngBytes);
    fPunto();
    return lngEscritos;
}

/// What is killed loses nothing that waits for the disk.
int fSinVolcar(int intFd)
{
    fPunto();
    return corte ? fDisco().fVolcar(intFd) : 0;
}

clsLlamadas fLlamadasMortales()
{
    clsLlamadas disco = llamadasReales;
    disco.fAbrir = fMortal<&clsLlamadas::fAbrir>;
    disco.fEscribir = fEscribirAMedias;
    disco.fVolcar = fSinVolcar;
    disco.fAlargar = fMortal<&clsLlamadas::fAlargar>;
    disco.fFechar = fMortal<&clsLlamadas::fFechar>;
    disco.fRenombrar = fMortal<&clsLlamadas::fRenombrar>;
    disco.fRenombrarLibre = fMortal<&clsLlamadas::fRenombrarLibre>;
    disco.fEnlazar = fMortal<&clsLlamadas::fEnlazar>;
    disco.fBorrar = fMortal<&clsLlamadas::fBorrar>;
    return disco;
}

const clsLlamadas llamadasMortales = fLlamadasMortales();

void fExigir(bool bolCierto, const std::string &strQue)
{
    if (!bolCierto) {
        ++intFallos;
        std::printf("  point %d: %s\n", intPunto, strQue.c_str());
    }
}

std::string fContenido(int intFichero)
{
    return std::string(static_cast<std::size_t>(100 + intFichero * 37),
                       static_cast<char>('A' + intFichero % 26));
}

/// The archive of one try: 50 files in five folders, a catalogue with more than those.
class clsCampo {
public:
    clsCampo()
    {
        m_arbol.fCrear("Miravel.ini");
        m_arbol.fCrear(strCopiaVieja, "una copia de otro dia\r\n");
        fAnotar(m_strViejo, m_arbol.fRuta("Miravel.ini"), clsFecha{}, 1);
        m_strNuevo = m_strViejo;
        for (int intFichero = 0; intFichero < intFicheros; ++intFichero) {
            const std::string strNombre =
                "c" + std::to_string(intFichero % 5) + "/IMG_" + std::to_string(intFichero);
            m_arbol.fCrear(strNombre, fContenido(intFichero));
            const timespec lstMomentos[2] = {{clsArbol::lngMomento, 0},
                                             {clsArbol::lngMomento, lngNanosegundos}};
            utimensat(AT_FDCWD, m_arbol.fRuta(strNombre).c_str(), lstMomentos, 0);
            m_lstFicheros.push_back({m_arbol.fRuta(strNombre), fechaNueva});
            const std::string &strRuta = m_lstFicheros.back().strFilePath;
            fAnotar(m_strViejo, strRuta, clsFecha{}, intFichero);
            fAnotar(m_strNuevo, fRutaCorregida(strRuta, fechaNueva), fechaNueva, intFichero);
        }
        m_strViejo += "un registro a medias\r\n2009";
        m_strNuevo += "un registro a medias\r\n2009";
        m_arbol.fCrear("Miravel.dat", m_strViejo);
    }

    void fCorregirTodo(const clsLlamadas &disco)
    {
        const clsOtrasLlamadas otras(disco);
        const clsFinCorreccion fin = fCorregir(m_arbol.fRaiz(), true, m_lstFicheros, {});
        fExigir(fin.correccion == Correccion::Hecha, "the correction failed");
    }

    void fDeshacerTodo(const clsLlamadas &disco)
    {
        const clsOtrasLlamadas otras(disco);
        const clsFinDeshacer deshecha = fDeshacer(m_arbol.fRaiz(), true);
        fExigir(deshecha.fin.correccion == Correccion::Hecha ||
                    deshecha.fin.correccion == Correccion::Ninguna,
                "it could not be taken back");
    }

    /// After taking back that was killed: every file is whole, and doing it again ends it.
    /// @param bolArranque whether the program is started in between.
    void fComprobarVuelta(const clsLlamadas &disco, bool bolArranque)
    {
        for (int intFichero = 0; intFichero < intFicheros; ++intFichero) {
            static_cast<void>(fComprobarFichero(intFichero, true));
        }
        fComprobarNombres();
        intMuerte = 0;
        if (bolArranque) {
            fTerminarCorreccion(m_arbol.fRaiz());
            fComprobarRegistros();
        }
        fDeshacerTodo(disco);
        fComprobarComoAntes();
        fReconstruir();
    }

    void fComprobar(bool bolEntera, const clsLlamadas &disco)
    {
        int intCorregidos = 0;
        for (int intFichero = 0; intFichero < intFicheros; ++intFichero) {
            intCorregidos += fComprobarFichero(intFichero, intFichero == intCorregidos) ? 1 : 0;
        }
        fExigir(!bolEntera || intCorregidos == intFicheros, "a file kept its name");
        fComprobarCatalogo(intCorregidos, bolEntera);
        fComprobarNombres();
        fTerminar(bolEntera);
        if (!bolEntera) { // an entire one is taken back elsewhere
            fDeshacerTodo(disco);
            fComprobarComoAntes();
        }
        fReconstruir();
    }

private:
    static void fAnotar(std::string &strCatalogo, std::string_view strRuta, clsFecha fecha,
                        int intBytes)
    {
        fAnadirRegistro(strCatalogo, {}, strRuta, fecha, intBytes);
    }

    /// @return whether it has its new name.
    bool fComprobarFichero(int intFichero, bool bolPuede) const
    {
        const std::string &strVieja =
            m_lstFicheros[static_cast<std::size_t>(intFichero)].strFilePath;
        const std::string strNueva = fRutaCorregida(strVieja, fechaNueva);
        std::vector<std::string> lstRutas;
        for (const std::string &strRuta : {strVieja, strNueva}) {
            struct stat datos {};
            if (lstat(strRuta.c_str(), &datos) != 0) {
                continue;
            }
            lstRutas.push_back(strRuta);
            const bool bolFecha = datos.st_mtim.tv_sec == clsArbol::lngMomento ||
                                  datos.st_mtim.tv_sec == fMomento(fechaNueva);
            fExigir(bolFecha && datos.st_atim.tv_sec == clsArbol::lngMomento &&
                        (datos.st_mode & 07777) == 0644,
                    strRuta + " has other times or permissions");
        }
        // Not before: reading one of two names of a file sets the access time of both.
        for (const std::string &strRuta : lstRutas) {
            fExigir(m_arbol.fLeer(strRuta.substr(m_arbol.fRaiz().size())) == fContenido(intFichero),
                    strRuta + " has another content");
        }
        fExigir(!lstRutas.empty(), strVieja + " is lost");
        const bool bolNueva = access(strNueva.c_str(), F_OK) == 0;
        fExigir(!bolNueva || bolPuede, strNueva + " was corrected out of turn");
        return bolNueva;
    }

    void fComprobarCatalogo(int intCorregidos, bool bolEntera) const
    {
        const std::vector<std::string> lstNombres = m_arbol.fNombres();
        const bool bolEsta = std::count(lstNombres.begin(), lstNombres.end(), "Miravel.dat") == 1;
        const std::string strEsta = m_arbol.fLeer("Miravel.dat");
        fExigir(!bolEsta || strEsta == m_strViejo || strEsta == m_strNuevo,
                "Miravel.dat is not whole");
        fExigir(strEsta != m_strNuevo || intCorregidos == intFicheros,
                "Miravel.dat is ahead of the files");
        fExigir(!bolEntera || strEsta == m_strNuevo, "Miravel.dat is not the new one");
        std::string strUltima;
        for (const std::string &strNombre : lstNombres) {
            if (strNombre.starts_with("Miravel.dat.") && strNombre != strCopiaVieja) {
                strUltima = strNombre;
                fExigir(m_arbol.fLeer(strNombre) == m_strViejo, strNombre + " is not whole");
            }
        }
        fExigir(bolEsta || !strUltima.empty(), "neither Miravel.dat nor a backup of it");
        fExigir(strEsta != m_strNuevo || !strUltima.empty(), "no backup");
        fExigir(m_arbol.fLeer(strCopiaVieja) == "una copia de otro dia\r\n",
                "an older backup was touched");
    }

    /// Nothing but what belongs there, and temporary files of the catalogue.
    void fComprobarNombres() const
    {
        for (const std::string &strNombre : m_arbol.fNombres()) {
            fExigir(strNombre == "Miravel.ini" || strNombre.starts_with("Miravel.dat") ||
                        clsReemplazo::fEsTemporal(strNombre, "Miravel.dat") ||
                        clsReemplazo::fEsTemporal(strNombre, strFicheroDiario) ||
                        strNombre.starts_with(strFicheroDiario) ||
                        (strNombre.size() == 2 && strNombre[0] == 'c'),
                    strNombre + " was left in the root");
        }
        for (int intCarpeta = 0; intCarpeta < 5; ++intCarpeta) {
            for (const std::string &strNombre :
                 m_arbol.fNombres("c" + std::to_string(intCarpeta))) {
                fExigir(strNombre.starts_with("IMG_") || strNombre.starts_with("20090715_IMG_"),
                        strNombre + " was left beside the files");
            }
        }
    }

    /// The next start finishes the catalogue, also when it is killed at that.
    void fTerminar(bool bolEntera) const
    {
        const clsOtrasLlamadas otras(llamadasMortales);
        if (!bolEntera) {
            intMuerte = 1 + intMuerte % 12;
            intPaso = 0;
            clsHijo hijo([this] { fTerminarCorreccion(m_arbol.fRaiz()); });
            static_cast<void>(hijo.fEsperar());
        }
        intMuerte = 0;
        fTerminarCorreccion(m_arbol.fRaiz());
        fExigir(access(m_arbol.fRuta(strFicheroDiario).c_str(), F_OK) != 0, "a journal is left");
        const std::string strCatalogo = m_arbol.fLeer("Miravel.dat");
        std::string strEsperado;
        fAnotar(strEsperado, m_arbol.fRuta("Miravel.ini"), clsFecha{}, 1);
        for (int intFichero = 0; intFichero < intFicheros; ++intFichero) {
            const std::string &strVieja =
                m_lstFicheros[static_cast<std::size_t>(intFichero)].strFilePath;
            struct stat datos {};
            const bool bolVieja = lstat(strVieja.c_str(), &datos) == 0;
            const bool bolFecha = !bolVieja || datos.st_mtim.tv_sec == fMomento(fechaNueva);
            fAnotar(strEsperado, bolVieja ? strVieja : fRutaCorregida(strVieja, fechaNueva),
                    bolFecha ? fechaNueva : clsFecha{}, intFichero);
        }
        fExigir(strCatalogo == strEsperado + "un registro a medias\r\n2009",
                "the finished catalogue does not tell where the files are");
    }

    /// Every record names a file that is there.
    void fComprobarRegistros() const
    {
        const std::string strCatalogo = m_arbol.fLeer("Miravel.dat");
        for (const clsCorregido &fichero : m_lstFicheros) {
            const std::string &strVieja = fichero.strFilePath;
            const std::string strNueva = fRutaCorregida(strVieja, fechaNueva);
            const std::string &strEsta = access(strNueva.c_str(), F_OK) != 0 ? strVieja : strNueva;
            const bool bolDos = access(strVieja.c_str(), F_OK) == 0 && strEsta == strNueva;
            fExigir(bolDos || strCatalogo.find(strEsta + "\r\n") != std::string::npos,
                    strEsta + " is in no record");
        }
    }

    /// Everything is as it was before the correction, but that there may be a backup.
    void fComprobarComoAntes() const
    {
        std::vector<std::string> lstNombres;
        for (const clsCorregido &fichero : m_lstFicheros) {
            struct stat datos {};
            fExigir(lstat(fichero.strFilePath.c_str(), &datos) == 0 &&
                        datos.st_mtim.tv_sec == clsArbol::lngMomento &&
                        datos.st_mtim.tv_nsec == lngNanosegundos && datos.st_nlink == 1,
                    fichero.strFilePath + " has not its name and time again");
            fExigir(access(fRutaCorregida(fichero.strFilePath, fechaNueva).c_str(), F_OK) != 0,
                    fichero.strFilePath + " has its new name, too");
        }
        fExigir(m_arbol.fLeer("Miravel.dat") == m_strViejo, "Miravel.dat is not the old one");
        for (const std::string &strNombre : m_arbol.fNombres()) {
            fExigir(!strNombre.starts_with(strFicheroDiario), strNombre + " is left");
        }
    }

    /// The next start finds the archive free and can build its catalogue anew.
    void fReconstruir() const
    {
        class clsMudo : public clsObservador {
            void fCarpeta(const std::string &) override {}
            void fError(clsError) override {}
            bool fSeguir() override { return true; }
        } mudo;
        fExigir(fConstruir(m_arbol.fRaiz(), mudo).construccion == Construccion::Hecha,
                "the catalogue cannot be built anew");
        const std::string strNuevo = m_arbol.fLeer("Miravel.dat");
        for (const clsCorregido &fichero : m_lstFicheros) {
            const bool bolEsta = strNuevo.find(fichero.strFilePath + "\r\n") != std::string::npos ||
                                 strNuevo.find(fRutaCorregida(fichero.strFilePath, fechaNueva) +
                                               "\r\n") != std::string::npos;
            fExigir(bolEsta, fichero.strFilePath + " is in no record");
        }
    }

    clsArbol m_arbol;
    std::vector<clsCorregido> m_lstFicheros;
    std::string m_strViejo;
    std::string m_strNuevo;
};

/// So many points, evenly spread, and always the last ones, where the catalogues change places.
std::set<int> fPuntos(int intTodos, int intCuantos)
{
    constexpr int intFinales = 8;
    std::set<int> lstPuntos;
    if (intCuantos == 0 || intCuantos >= intTodos) {
        intCuantos = intTodos;
    }
    for (int intEste = intTodos; intEste > 0 && intEste > intTodos - intFinales; --intEste) {
        lstPuntos.insert(intEste);
    }
    const int intResto = std::max(intCuantos - intFinales, 0);
    for (int intVez = 0; intVez < intResto; ++intVez) {
        lstPuntos.insert(1 + intVez * (intTodos - intFinales) / intResto);
    }
    return lstPuntos;
}

using clsCorte = std::optional<Olvido>;

/// Kills something at a point of it, or has the power go.
template <typename Hacer> void fMatarEn(int intEste, clsCorte este, const Hacer &fHacer)
{
    intPaso = 0;
    intPunto = intEste;
    intMuerte = intEste;
    clsHijo hijo([&] {
        corte = este;
        fHacer();
    });
    fExigir(hijo.fEsperar() == -SIGKILL, "it was not killed");
}

void fMatarCorreccion(int intEste, clsCorte este, const clsLlamadas &disco)
{
    clsCampo campo;
    fMatarEn(intEste, este, [&] { campo.fCorregirTodo(disco); });
    campo.fComprobar(false, disco);
}

void fMatarVuelta(int intEste, clsCorte este, const clsLlamadas &disco)
{
    clsCampo campo;
    intMuerte = 0;
    campo.fCorregirTodo(disco);
    fMatarEn(intEste, este, [&] { campo.fDeshacerTodo(disco); });
    campo.fComprobarVuelta(disco, intEste % 2 == 0);
}

void fProbarPuntos(const std::string &strFrase, int intTodos, int intCuantos,
                   const clsLlamadas &disco, void (*fMatar)(int, clsCorte, const clsLlamadas &))
{
    const struct {
        const char *strFrase;
        clsCorte corte;
    } lstFinales[] = {
        {"killed", {}},
        {"power lost, and contents", Olvido::Contenidos},
        {"power lost, names and contents", Olvido::Todo},
    };
    const std::set<int> lstPuntos = fPuntos(intTodos, intCuantos);
    for (const auto &final : lstFinales) {
        const int intAntes = intFallos;
        for (const int intEste : lstPuntos) {
            fMatar(intEste, final.corte, disco);
        }
        std::printf("%s: %s at %zu of %d points, %d faults\n", strFrase.c_str(), final.strFrase,
                    lstPuntos.size(), intTodos, intFallos - intAntes);
    }
}

void fProbar(const std::string &strFrase, int intCuantos, const clsLlamadas &disco)
{
    intMuerte = 0;
    intPaso = 0;
    clsCampo campo;
    campo.fCorregirTodo(disco);
    const int intCorreccion = std::exchange(intPaso, 0);
    clsCampo otro;
    otro.fCorregirTodo(disco);
    intPaso = 0;
    otro.fDeshacerTodo(disco);
    const int intVuelta = intPaso;
    campo.fComprobar(true, disco);
    otro.fComprobarVuelta(disco, false);
    fProbarPuntos(strFrase, intCorreccion, intCuantos, disco, fMatarCorreccion);
    fProbarPuntos(strFrase + ", taking back", intVuelta, intCuantos, disco, fMatarVuelta);
}

} // namespace

int main(int intArgumentos, char **strArgumentos)
{
    const int intCuantos = intArgumentos > 1 ? std::atoi(strArgumentos[1]) : 200;
    clsLlamadas disco = fLlamadasMortales();
    fProbar("renames that refuse taken names", intCuantos, disco);
    disco.fRenombrarLibre = fFalla<EINVAL>;
    fProbar("links", intCuantos, disco);
    disco.fEnlazar = fFalla<EPERM>;
    fProbar("plain renames", intCuantos, disco);
    return intFallos == 0 ? 0 : 1;
}
