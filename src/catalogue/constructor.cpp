#include "catalogue/constructor.h"

#include "catalogue/carpeta.h"
#include "catalogue/recorrido.h"
#include "catalogue/registro.h"
#include "shared/ajustes.h"
#include "sistema/cerrojo.h"
#include "sistema/reemplazo.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <vector>

namespace {

bool fEsTemporal(std::string_view strNombre)
{
    return clsReemplazo::fEsTemporal(strNombre, strFicheroCatalogo);
}

/// Names in the root that exist for a moment only: those above, and those of the settings.
bool fEsPasajero(std::string_view strNombre)
{
    return fEsTemporal(strNombre) || clsReemplazo::fEsTemporal(strNombre, strFicheroAjustes);
}

/// Hands the walk's lines to the new catalogue and the rest to the observer.
class clsEscribano : public clsReceptor {
public:
    clsEscribano(clsReemplazo &archivo, clsObservador &observador)
        : m_archivo(archivo), m_observador(observador)
    {
    }
    void fCarpeta(const std::string &strCarpeta) override { m_observador.fCarpeta(strCarpeta); }
    bool fRegistros(std::string_view strLineas) override
    {
        constexpr std::size_t lngTramo = 1 << 18;
        m_bolAlgo = true;
        m_strPendiente.append(strLineas);
        if (m_strPendiente.size() >= lngTramo) {
            fVaciar();
        }
        return m_archivo.fError() == 0;
    }
    void fError(int intError) override { m_observador.fError(intError); }
    bool fCeder() override { return m_observador.fCeder(); }
    /// Whether any file was recorded.
    [[nodiscard]] bool fAlgo() const { return m_bolAlgo; }
    void fVaciar()
    {
        m_archivo.fEscribir(m_strPendiente);
        m_strPendiente.clear();
    }

private:
    clsReemplazo &m_archivo;
    clsObservador &m_observador;
    std::string m_strPendiente;
    bool m_bolAlgo = false;
};

/// Deletes what builds that were killed have left; nobody else writes while the lock is held.
void fQuitarRestos(const std::string &strRaiz)
{
    std::vector<clsEntrada> lstEntradas;
    const clsDescriptor carpeta{open(strRaiz.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    if (!carpeta.fAbierto() || fListarCarpeta(carpeta.fFd(), lstEntradas) != 0) {
        return;
    }
    for (const clsEntrada &entrada : lstEntradas) {
        if (entrada.entrada == Entrada::Archivo && fEsTemporal(entrada.strNombre)) {
            unlinkat(carpeta.fFd(), entrada.strNombre.c_str(), 0);
        }
    }
}

} // namespace

clsConstruccion fConstruir(const std::string &strRaiz, clsObservador &observador, int intHilos)
{
    const clsCerrojoArchivo cerrojo(strRaiz);
    if (!cerrojo.fTenido()) {
        return {Construccion::Ocupada, 0};
    }
    fQuitarRestos(strRaiz);
    const std::string strCatalogo = strRaiz + std::string(strFicheroCatalogo);
    const auto huella = fHuella(strCatalogo);
    const bool bolHabia = huella && huella->lngBytes > 0;
    // Exclusive: a catalogue that is there is not touched before its successor is whole.
    const clsDescriptor vacio{
        open(strCatalogo.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666)};
    clsReemplazo archivo(strCatalogo);
    if (archivo.fError() != 0) {
        return {Construccion::SinEscribir, archivo.fError()};
    }
    clsEscribano escribano(archivo, observador);
    const clsRecorrido recorrido = fRecorrer(strRaiz, {intHilos, fEsPasajero}, escribano);
    // With a failing root folder what was there before is worth more than what could be read now.
    if (recorrido.intErrorRaiz != 0 && (bolHabia || !escribano.fAlgo())) {
        return {Construccion::RaizIlegible, recorrido.intErrorRaiz};
    }
    if (recorrido.bolInterrumpido && archivo.fError() == 0) {
        return {Construccion::Interrumpida, 0};
    }
    escribano.fVaciar();
    const int intError = archivo.fConfirmar(true);
    return {intError == 0 ? Construccion::Hecha : Construccion::SinEscribir, intError};
}
