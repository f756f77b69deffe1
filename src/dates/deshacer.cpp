#include "dates/deshacer.h"

#include "catalogue/registro.h"
#include "dates/faena.h"
#include "dates/reanudacion.h"
#include "dates/vuelta.h"
#include "sistema/carpeta.h"
#include "sistema/recinto.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <unordered_map>
#include <utility>

namespace {

using Caso = clsVuelta::Caso;

/// The latest correction that can be taken back.
struct clsUltima {
    std::string strDiario;
    clsDiario diario;
};

std::optional<clsDiario> fLeerGuardado(const std::string &strRaiz, const std::string &strDiario)
{
    auto diario = fLeerDiario(strRaiz, strDiario);
    return diario && !diario->bolDeshace ? std::move(diario) : std::nullopt;
}

std::optional<clsUltima> fUltima(const std::string &strRaiz)
{
    for (std::string &strDiario : fDiariosGuardados(strRaiz)) {
        if (auto diario = fLeerGuardado(strRaiz, strDiario)) {
            return clsUltima{std::move(strDiario), std::move(*diario)};
        }
    }
    return {};
}

/// Whether a file could be taken back another time.
bool fPendiente(const clsCorregido &fichero)
{
    const clsError error = fichero.errorNombre;
    const bool bolPerdido = error == ENOENT || error == ENOTDIR || error == errorCambiado;
    return !fichero.fBien() && !(fichero.bolTratado && bolPerdido);
}

/// Nothing was touched.
clsFinDeshacer fNada(Correccion correccion, clsError error = {})
{
    clsFinDeshacer fin;
    fin.fin.correccion = correccion;
    fin.fin.error = error;
    return fin;
}

/// The records of a catalogue file.
class clsLibro {
public:
    explicit clsLibro(const std::string &strRuta)
        : m_archivo(fAbrirRegular(strRuta, false)),
          m_registros(m_archivo ? fBytesDe(m_archivo->descriptor) : clsSurtidor(fNada))
    {
    }
    [[nodiscard]] bool fBien() const { return m_archivo && !m_registros.fError(); }
    [[nodiscard]] const clsRegistro *fSiguiente() { return m_registros.fSiguiente(); }

private:
    static clsResultado<std::size_t> fNada(char * /*chrDestino*/, std::size_t /*lngBytes*/)
    {
        return std::size_t{0};
    }
    clsResultado<clsAbierto> m_archivo;
    clsRegistros m_registros;
};

/// Taking one correction back.
class clsRetorno {
public:
    clsRetorno(const std::string &strRaiz, const clsDiario &diario)
        : m_strRaiz(strRaiz), m_strCatalogo(strRaiz + std::string(strFicheroCatalogo)),
          m_diario(diario)
    {
    }
    [[nodiscard]] clsFinDeshacer fHacer(const clsDescriptor &carpeta, const clsSeguir &fSeguir);

private:
    /// A file of the correction: its two full paths, and what becomes of it.
    struct clsVuelto {
        std::string strDe;
        std::string strA;
        clsVuelta vuelta;
        std::optional<clsVisto> visto; ///< where it lies
        bool bolLibreA = false;        ///< nothing has the path that the correction gave it
        std::size_t lngFichero = 0;    ///< its place in m_lstFicheros, if there is something to do

        [[nodiscard]] bool fPorHacer() const
        {
            return vuelta.caso != Caso::Hecha && vuelta.caso != Caso::Dejar;
        }
    };

    void fDecidir(const clsDescriptor &carpeta);
    static void fMirar(clsVuelto &vuelto, const clsAnotacion &anotacion, clsRecinto &recinto);
    void fEncargar(clsVuelto &vuelto, const clsAnotacion &anotacion);
    [[nodiscard]] bool fSoloCorregido() const;
    [[nodiscard]] bool fMismoRegistro(const clsRegistro &antes, const clsRegistro &ahora) const;
    [[nodiscard]] bool fComoAntes(const clsVuelto &vuelto) const;
    [[nodiscard]] clsCorregido fQuedo(std::size_t lng);
    [[nodiscard]] clsDestinos fDestinosDeCopia() const;
    [[nodiscard]] clsDestinos fDestinosDeHoy() const;
    [[nodiscard]] clsDestino fDestinoDe(std::size_t lng) const;

    const std::string &m_strRaiz;
    const std::string m_strCatalogo;
    const clsDiario &m_diario;
    std::vector<clsVuelto> m_lstVueltos;                       ///< one for each file of the journal
    std::unordered_map<std::string_view, std::size_t> m_mapDe; ///< of these, by the old path
    std::vector<clsCorregido> m_lstFicheros; ///< those there is something to do for
    std::vector<clsMeta> m_lstMetas;
};

/// Looks where the files are and what there is to do.
void clsRetorno::fDecidir(const clsDescriptor &carpeta)
{
    clsRecinto recinto(m_strRaiz, carpeta);
    m_lstVueltos.resize(m_diario.lstAnotaciones.size());
    m_mapDe.reserve(m_lstVueltos.size());
    m_lstFicheros.reserve(m_lstVueltos.size());
    m_lstMetas.reserve(m_lstVueltos.size());
    for (std::size_t lng = 0; lng < m_lstVueltos.size(); ++lng) {
        const clsAnotacion &anotacion = m_diario.lstAnotaciones[lng];
        clsVuelto &vuelto = m_lstVueltos[lng];
        vuelto.strDe = m_strRaiz + anotacion.strDe;
        vuelto.strA = m_strRaiz + anotacion.strA;
        fMirar(vuelto, anotacion, recinto);
        if (vuelto.fPorHacer()) {
            fEncargar(vuelto, anotacion);
        }
        m_mapDe.emplace(vuelto.strDe, lng);
    }
}

void clsRetorno::fMirar(clsVuelto &vuelto, const clsAnotacion &anotacion, clsRecinto &recinto)
{
    if (anotacion.fIntacta()) { // whatever has become of it since
        vuelto.vuelta.caso = Caso::Hecha;
        return;
    }
    const auto vistoDe = fVer(vuelto.strDe, recinto.fConsultar(vuelto.strDe));
    const auto vistoA = anotacion.strA == anotacion.strDe
                            ? vistoDe
                            : fVer(vuelto.strA, recinto.fConsultar(vuelto.strA));
    vuelto.bolLibreA = vistoA.fError() == ENOENT;
    vuelto.vuelta = fVuelta(anotacion, vistoA, vistoDe);
    vuelto.visto = vuelto.vuelta.caso == Caso::Hora ? vistoDe : vistoA;
}

void clsRetorno::fEncargar(clsVuelto &vuelto, const clsAnotacion &anotacion)
{
    const Caso caso = vuelto.vuelta.caso;
    vuelto.lngFichero = m_lstFicheros.size();
    clsCorregido fichero;
    fichero.strFilePath = caso == Caso::Hora ? vuelto.strDe : vuelto.strA;
    fichero.fecha = fFechaLocal(anotacion.antes.huella.lngSegundos);
    m_lstFicheros.push_back(std::move(fichero));
    m_lstMetas.push_back({vuelto.strDe, anotacion.antes.huella, caso != Caso::Nombre,
                          caso == Caso::Soltar, vuelto.visto});
}

/// Whether two records are the same, but for what the correction has made of them.
bool clsRetorno::fMismoRegistro(const clsRegistro &antes, const clsRegistro &ahora) const
{
    const auto &[ruta, fecha, tamano] = antes.lstLineas;
    const auto &[rutaAhora, fechaAhora, tamanoAhora] = ahora.lstLineas;
    const bool bolEntero = antes.lngLineas == antes.lstLineas.size();
    const auto vuelto = bolEntero ? m_mapDe.find(ruta.strTexto) : m_mapDe.end();
    if (vuelto == m_mapDe.end()) {
        return antes.strBytes == ahora.strBytes;
    }
    return antes.lngLineas == ahora.lngLineas &&
           (rutaAhora.strTexto == ruta.strTexto ||
            rutaAhora.strTexto == m_lstVueltos[vuelto->second].strA) &&
           rutaAhora.strFin == ruta.strFin && fechaAhora.strFin == fecha.strFin &&
           tamanoAhora.strTexto == tamano.strTexto && tamanoAhora.strFin == tamano.strFin;
}

/// Whether the catalogue is the backup, but for what the correction has made of it.
bool clsRetorno::fSoloCorregido() const
{
    clsLibro copia(m_strRaiz + m_diario.strCopia);
    clsLibro actual(m_strCatalogo);
    const clsRegistro *antes = copia.fSiguiente();
    const clsRegistro *ahora = actual.fSiguiente();
    while (antes != nullptr && ahora != nullptr && fMismoRegistro(*antes, *ahora)) {
        antes = copia.fSiguiente();
        ahora = actual.fSiguiente();
    }
    return antes == nullptr && ahora == nullptr && copia.fBien() && actual.fBien();
}

/// Whether a file is as it was before the correction.
bool clsRetorno::fComoAntes(const clsVuelto &vuelto) const
{
    return vuelto.fPorHacer() ? m_lstFicheros[vuelto.lngFichero].fBien()
                              : vuelto.vuelta.caso == Caso::Hecha;
}

/// What became of a file; to be asked once, in the end.
clsCorregido clsRetorno::fQuedo(std::size_t lng)
{
    const clsVuelto &vuelto = m_lstVueltos[lng];
    if (vuelto.fPorHacer()) {
        return std::move(m_lstFicheros[vuelto.lngFichero]);
    }
    clsCorregido fichero;
    fichero.strFilePath = vuelto.strA;
    fichero.strFilePathNew = fComoAntes(vuelto) ? vuelto.strDe : vuelto.strA;
    fichero.fecha = fFechaLocal(m_diario.lstAnotaciones[lng].antes.huella.lngSegundos);
    fichero.errorNombre = vuelto.vuelta.error;
    fichero.bolTratado = true;
    return fichero;
}

/// The path and the date of a file as they are now.
clsDestino clsRetorno::fDestinoDe(std::size_t lng) const
{
    const clsVuelto &vuelto = m_lstVueltos[lng];
    const clsAnotacion &anotacion = m_diario.lstAnotaciones[lng];
    if (!vuelto.fPorHacer()) {
        return vuelto.vuelta.caso == Caso::Hecha
                   ? clsDestino{vuelto.strDe, fFechaLocal(anotacion.antes.huella.lngSegundos)}
                   : clsDestino{vuelto.strA, anotacion.fecha};
    }
    const clsCorregido &fichero = m_lstFicheros[vuelto.lngFichero];
    const bool bolVieja =
        vuelto.vuelta.caso == Caso::Nombre || (fichero.bolTratado && !fichero.errorFecha);
    return {fichero.strFilePathNew, bolVieja ? fichero.fecha : anotacion.fecha};
}

/// What the records of the backup get: those of files that are not as they were.
clsDestinos clsRetorno::fDestinosDeCopia() const
{
    clsDestinos destinos;
    for (std::size_t lng = 0; lng < m_lstVueltos.size(); ++lng) {
        if (!fComoAntes(m_lstVueltos[lng])) {
            destinos.emplace(m_lstVueltos[lng].strDe, fDestinoDe(lng));
        }
    }
    return destinos;
}

/// What the records of today's catalogue get: those of files that are as they were, or nearly.
clsDestinos clsRetorno::fDestinosDeHoy() const
{
    clsDestinos destinos;
    for (std::size_t lng = 0; lng < m_lstVueltos.size(); ++lng) {
        const clsVuelto &vuelto = m_lstVueltos[lng];
        const bool bolHecha = vuelto.vuelta.caso == Caso::Hecha;
        if (vuelto.fPorHacer() && m_lstFicheros[vuelto.lngFichero].bolTratado) {
            destinos.emplace(m_lstFicheros[vuelto.lngFichero].strFilePath, fDestinoDe(lng));
        } else if (bolHecha && m_diario.lstAnotaciones[lng].antes != clsVisto()) {
            destinos.emplace(vuelto.strDe, fDestinoDe(lng));
        }
        if (bolHecha && vuelto.bolLibreA) {
            destinos.emplace(vuelto.strA, fDestinoDe(lng));
        }
    }
    return destinos;
}

clsFinDeshacer clsRetorno::fHacer(const clsDescriptor &carpeta, const clsSeguir &fSeguir)
{
    fDecidir(carpeta);
    const bool bolDeCopia = fSoloCorregido();
    clsCatalogoCorregido catalogo(m_strCatalogo,
                                  bolDeCopia ? m_strRaiz + m_diario.strCopia : m_strCatalogo);
    const auto fDestinos = [&] { return bolDeCopia ? fDestinosDeCopia() : fDestinosDeHoy(); };
    clsFaena faena{m_strRaiz, carpeta, m_lstFicheros, std::move(m_lstMetas), catalogo, fDestinos};
    faena.diario.strCopia = m_diario.strCopia;
    faena.diario.bolDeshace = true;
    clsFinDeshacer fin;
    fin.fin = fHacerFaena(faena, {}, fSeguir);
    if (fin.fin.correccion == Correccion::SinCatalogo && catalogo.fErrorViejo() == ENOENT) {
        fin.fin = {}; // there is none; the next one is built anew
    }
    fin.lstFicheros.reserve(m_lstVueltos.size());
    for (std::size_t lng = 0; lng < m_lstVueltos.size(); ++lng) {
        fin.lstFicheros.push_back(fQuedo(lng));
        fin.bolPendiente |= fPendiente(fin.lstFicheros.back());
    }
    fin.bolPendiente |= bool(fin.fin.error);
    return fin;
}

} // namespace

std::vector<clsCorreccionHecha> fCorreccionesHechas(const std::string &strRaiz)
{
    std::vector<clsCorreccionHecha> lstHechas;
    for (std::string &strDiario : fDiariosGuardados(strRaiz)) {
        if (const auto diario = fLeerGuardado(strRaiz, strDiario)) {
            lstHechas.push_back({fFechaDeCopia(diario->strCopia).value_or(clsFecha{}),
                                 static_cast<int>(diario->lstAnotaciones.size()),
                                 std::move(strDiario)});
        }
    }
    return lstHechas;
}

clsFinDeshacer fDeshacer(const std::string &strRaiz, bool bolEscritura, const clsSeguir &fSeguir)
{
    if (!bolEscritura) {
        return fNada(Correccion::SinPermiso);
    }
    const clsCerrojoArchivo cerrojo(strRaiz);
    if (!cerrojo.fTenido()) {
        return fNada(Correccion::Ocupada);
    }
    if (!cerrojo.fCarpeta().fAbierto()) { // nothing below it could be changed
        return fNada(Correccion::Imposible, EIO);
    }
    if (const clsError error = fReanudar(strRaiz)) {
        return fNada(Correccion::Imposible, error);
    }
    const auto ultima = fUltima(strRaiz);
    if (!ultima) {
        return fNada(Correccion::Ninguna);
    }
    clsFinDeshacer fin = clsRetorno(strRaiz, ultima->diario).fHacer(cerrojo.fCarpeta(), fSeguir);
    if (!fin.bolPendiente) {
        fBorrarDiario(strRaiz, ultima->strDiario);
    }
    if (!fin.fin.error) {
        fBorrarDiario(strRaiz);
    }
    return fin;
}
