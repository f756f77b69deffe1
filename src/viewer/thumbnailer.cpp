#include "viewer/thumbnailer.h"

#include "shared/rutas.h"
#include "shared/texto.h"
#include "sistema/carpeta.h"
#include "sistema/proceso.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <thread>
#include <utility>

namespace {

using clsTextos = std::vector<std::string>;

/// The types that desktops know the extensions by, in the shared MIME database and before it.
constexpr std::pair<const char *, const char *> lstTiposVideo[] = {
    {"MPG",  "video/mpeg"        },
    {"MPG",  "video/x-mpeg"      },
    {"AVI",  "video/x-msvideo"   },
    {"AVI",  "video/vnd.avi"     },
    {"AVI",  "video/msvideo"     },
    {"WMV",  "video/x-ms-wmv"    },
    {"3GP",  "video/3gpp"        },
    {"3GP",  "video/3gp"         },
    {"FLV",  "video/x-flv"       },
    {"FLV",  "video/flv"         },
    {"MOV",  "video/quicktime"   },
    {"MP4",  "video/mp4"         },
    {"M4V",  "video/x-m4v"       },
    {"M4V",  "video/mp4"         },
    {"MKV",  "video/x-matroska"  },
    {"WEBM", "video/webm"        },
    {"MTS",  "video/mp2t"        },
    {"M2TS", "video/mp2t"        },
    {"TS",   "video/mp2t"        },
    {"MOD",  "video/mpeg"        },
    {"VOB",  "video/mpeg"        },
    {"OGV",  "video/ogg"         },
    {"OGV",  "video/x-theora+ogg"},
};

/// A value of a key file without its escapes \s \n \t \r and \\.
std::string fSinEscapes(std::string_view strValor)
{
    std::string strTexto;
    for (std::size_t lng = 0; lng < strValor.size(); ++lng) {
        if (strValor[lng] != '\\' || lng + 1 == strValor.size()) {
            strTexto += strValor[lng];
            continue;
        }
        constexpr std::string_view strLetras = "sntr\\";
        constexpr std::string_view strSignos = " \n\t\r\\";
        const std::size_t lngLetra = strLetras.find(strValor[++lng]);
        if (lngLetra == std::string_view::npos) {
            strTexto += {'\\', strValor[lng]}; // not an escape of the file, perhaps one of Exec
        } else {
            strTexto += strSignos[lngLetra];
        }
    }
    return strTexto;
}

bool fExiste(const std::string &strPrograma)
{
    if (strPrograma.find('/') != std::string::npos) {
        return fEjecutable(strPrograma);
    }
    const char *strCamino = std::getenv("PATH");
    const clsTextos lstCarpetas = fPartir(strCamino == nullptr ? "/usr/bin:/bin" : strCamino, ':');
    return std::any_of(lstCarpetas.begin(), lstCarpetas.end(), [&](const std::string &strCarpeta) {
        return !strCarpeta.empty() && fEjecutable(fBarraFinal(strCarpeta, false) + strPrograma);
    });
}

bool fSirve(const clsThumbnailer &programa, std::string_view strExtension)
{
    const bool bolTipo =
        std::any_of(std::begin(lstTiposVideo), std::end(lstTiposVideo), [&](const auto &tipo) {
            return fIgualSinCaja(tipo.first, strExtension) &&
                   std::find(programa.lstTipos.begin(), programa.lstTipos.end(), tipo.second) !=
                       programa.lstTipos.end();
        });
    return bolTipo && (programa.strTryExec.empty() || fExiste(programa.strTryExec));
}

std::set<std::string> fNombres(const std::string &strCarpeta)
{
    std::set<std::string> lstNombres;
    std::vector<clsEntradaCarpeta> lstEntradas;
    if (const auto carpeta = fAbrirCarpeta(strCarpeta)) {
        static_cast<void>(fListarCarpeta(*carpeta, lstEntradas)); // what was listed counts
    }
    for (clsEntradaCarpeta &entrada : lstEntradas) {
        if (entrada.strNombre.ends_with(".thumbnailer")) {
            lstNombres.insert(std::move(entrada.strNombre));
        }
    }
    return lstNombres;
}

} // namespace

std::optional<clsThumbnailer> fLeerThumbnailer(std::string_view strTexto)
{
    std::map<std::string, std::string> claves;
    bool bolGrupo = false;
    for (const std::string &strEntera : fPartir(strTexto, '\n')) {
        const std::string_view strLinea =
            fSinBlancos(std::string_view(strEntera).substr(0, strEntera.find('\r')));
        const std::size_t lngIgual = strLinea.find('=');
        if (strLinea.starts_with('[')) {
            bolGrupo = strLinea == "[Thumbnailer Entry]";
        } else if (bolGrupo && lngIgual != std::string_view::npos) {
            claves[std::string(fSinBlancos(strLinea.substr(0, lngIgual)))] =
                fSinEscapes(fSinBlancos(strLinea.substr(lngIgual + 1)));
        }
    }
    clsThumbnailer programa{claves["TryExec"], claves["Exec"], fPartir(claves["MimeType"], ';')};
    std::erase(programa.lstTipos, "");
    return programa.strExec.empty() ? std::nullopt : std::optional(std::move(programa));
}

std::vector<std::string> fOrden(std::string_view strExec, std::map<char, std::string> codigos)
{
    codigos.emplace('%', "%");
    clsTextos lstOrden;
    bool bolDentro = false; // of an argument, which may be empty between quotes
    char chrComilla = '\0';
    for (std::size_t lng = 0; lng < strExec.size(); ++lng) {
        const char chr = strExec[lng];
        const bool bolSigue = lng + 1 < strExec.size();
        if (chrComilla == '\0' && (chr == ' ' || chr == '\t')) {
            bolDentro = false;
            continue;
        }
        if (!bolDentro) {
            lstOrden.emplace_back();
            bolDentro = true;
        }
        if (chr == chrComilla) {
            chrComilla = '\0';
        } else if (chrComilla == '\0' && (chr == '"' || chr == '\'')) {
            chrComilla = chr;
        } else if (chr == '\\' && chrComilla != '\'' && bolSigue) {
            lstOrden.back() += strExec[++lng];
        } else if (chr != '%') {
            lstOrden.back() += chr;
        } else if (bolSigue && codigos.contains(strExec[++lng])) {
            lstOrden.back() += codigos[strExec[lng]];
        } else {
            return {};
        }
    }
    return chrComilla == '\0' ? lstOrden : clsTextos();
}

std::optional<std::string> fBuscarThumbnailer(const std::vector<std::string> &lstCarpetas,
                                              std::string_view strRuta)
{
    std::set<std::string> lstVistos;
    for (const std::string &strCarpeta : lstCarpetas) {
        for (const std::string &strNombre : fNombres(strCarpeta)) {
            const auto texto = lstVistos.insert(strNombre).second
                                   ? fLeerArchivo(strCarpeta + strNombre)
                                   : clsError();
            const auto programa = texto ? fLeerThumbnailer(*texto) : std::nullopt;
            if (programa && fSirve(*programa, fExtensionDe(strRuta))) {
                return programa->strExec;
            }
        }
    }
    return std::nullopt;
}

std::optional<int> fEjecutar(std::vector<std::string> lstOrden, std::chrono::milliseconds plazo,
                             const std::atomic<bool> &bolAnulado)
{
    const auto limite = std::chrono::steady_clock::now() + plazo;
    clsProceso proceso;
    if (!proceso.fIniciar(std::move(lstOrden))) {
        return std::nullopt;
    }
    while (!bolAnulado && std::chrono::steady_clock::now() < limite) {
        if (const auto codigo = proceso.fFin()) {
            return codigo;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return std::nullopt;
}
