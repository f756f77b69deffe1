#include "sistema/cambios.h"

#include "sistema/carpeta.h"
#include "sistema/llamadas.h"

#include <fcntl.h>

namespace {

clsError fErrorDe(int intResultado) { return intResultado == 0 ? 0 : errno; }

/// Where a path begins that is relative to no open folder.
const clsDescriptor &fAqui()
{
    static const clsDescriptor aqui{AT_FDCWD}; // below 0: nothing to be closed
    return aqui;
}

/// Two names in an open folder.
struct clsNombres {
    const clsDescriptor &carpeta;
    const std::string &strDe;
    const std::string &strA;

    [[nodiscard]] auto fVerDe() const { return fConsultarEn(carpeta, strDe, false); }
    [[nodiscard]] auto fVerA() const { return fConsultarEn(carpeta, strA, false); }
    [[nodiscard]] int fRenombrar() const
    {
        return fLlamadas().fRenombrar(carpeta.fFd(), strDe.c_str(), strA.c_str());
    }
};

/// Whether linking failed because there are no links, not because of this file or name.
bool fSinEnlaces(clsError error)
{
    return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK;
}

/// Whether deleting was refused, not begun.
bool fRechazo(clsError error)
{
    return error == EACCES || error == EPERM || error == EROFS || error == EBUSY;
}

/// Whether a name is one of this file, as it was before its names were changed.
bool fEsSuyo(const clsDatosArchivo &archivo, const clsResultado<clsDatosArchivo> &datos)
{
    return datos && datos->identidad == archivo.identidad && datos->huella == archivo.huella;
}

/// Whether a file has moved although the call failed: a server that is asked again, because its
/// answer was lost, refuses what it has done the first time.
bool fMovido(const clsDatosArchivo &archivo, const clsNombres &nombres)
{
    const auto viejo = nombres.fVerDe();
    return !viejo && viejo.fError() == ENOENT && fEsSuyo(archivo, nombres.fVerA());
}

/// Takes the old name from a file that has got the new one. On an error it keeps one of them or
/// both.
clsError fSoltar(const clsDatosArchivo &archivo, const clsNombres &nombres)
{
    const clsError error = fBorrarEn(nombres.carpeta, nombres.strDe);
    if (!error || !fEsSuyo(archivo, nombres.fVerDe()) || !fEsSuyo(archivo, nombres.fVerA())) {
        return error;
    }
    // Only what was refused can be undone: anything else may be done yet, when the other name would
    // be the only one.
    return fRechazo(error) ? (fBorrarEn(nombres.carpeta, nombres.strA), error)
                           : fBorrarEn(nombres.carpeta, nombres.strDe);
}

/// For file systems without a call of their own that refuses a taken name: a link to the file, then
/// its old name goes, so that it has one at every moment. Without links, looking has to do.
clsError fMirarYRenombrar(const clsDatosArchivo &archivo, const clsNombres &nombres)
{
    const auto antes = nombres.fVerA();
    if (antes || antes.fError() != ENOENT) {
        return antes ? EEXIST : antes.fError();
    }
    const clsError error = fErrorDe(
        fLlamadas().fEnlazar(nombres.carpeta.fFd(), nombres.strDe.c_str(), nombres.strA.c_str()));
    const auto despues = error ? nombres.fVerA() : clsError();
    // A name that the file had before, and that was not seen, is none more than there were.
    if (!error || (fEsSuyo(archivo, despues) && despues->lngNombres > archivo.lngNombres)) {
        return fSoltar(archivo, nombres);
    }
    if (!fSinEnlaces(error) || despues) {
        return despues ? EEXIST : error;
    }
    return fErrorDe(nombres.fRenombrar());
}

} // namespace

clsError fRenombrar(const std::string &strDe, const std::string &strA)
{
    return fRenombrarEn(fAqui(), strDe, strA);
}

clsError fRenombrarEn(const clsDescriptor &carpeta, const std::string &strDe,
                      const std::string &strA, const std::optional<clsDatosArchivo> &visto)
{
    const clsNombres nombres{carpeta, strDe, strA};
    const auto datos = visto ? clsResultado<clsDatosArchivo>(*visto) : nombres.fVerDe();
    if (!datos || datos->tipo == TipoArchivo::Carpeta) {
        return datos ? EISDIR : datos.fError();
    }
    clsError error =
        fErrorDe(fLlamadas().fRenombrarLibre(carpeta.fFd(), strDe.c_str(), strA.c_str()));
    if (error == EINVAL || error == ENOSYS) {
        error = fMirarYRenombrar(*datos, nombres);
    }
    return error && fMovido(*datos, nombres) ? clsError() : error;
}

clsError fSoltarNombre(const std::string &strRuta, const std::string &strOtro)
{
    return fSoltarNombreEn(fAqui(), strRuta, strOtro);
}

clsError fSoltarNombreEn(const clsDescriptor &carpeta, const std::string &strNombre,
                         const std::string &strOtro)
{
    const clsNombres nombres{carpeta, strNombre, strOtro};
    const auto datos = nombres.fVerDe();
    if (!datos || datos->tipo == TipoArchivo::Carpeta) {
        return datos ? EISDIR : datos.fError();
    }
    return datos->lngNombres > 1 && fEsSuyo(*datos, nombres.fVerA()) ? fBorrarEn(carpeta, strNombre)
                                                                     : EEXIST;
}

clsError fSustituir(const std::string &strDe, const std::string &strA)
{
    const clsNombres nombres{fAqui(), strDe, strA};
    const auto datos = nombres.fVerDe();
    const clsError error = fErrorDe(nombres.fRenombrar());
    return error && datos && fMovido(*datos, nombres) ? clsError() : error;
}
