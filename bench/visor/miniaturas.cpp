// Time to make the thumbnails of photos: miravel_bench_miniaturas BOX FILE...
// Photos with an EXIF thumbnail are compared with a bare read-and-decode of that, others with
// QImageReader and a scaled size, and with what our cache on the disk gives at the next visit; both
// with vipsthumbnail, if that is there, and two threads with one.

#include "medir.h"

#include "dates/origen.h"
#include "viewer/cabecera_jpeg.h"
#include "viewer/pieza_mini.h"

#include <QCoreApplication>
#include <QFile>
#include <QImageReader>
#include <QTemporaryDir>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace {

struct clsFoto {
    std::string strRuta;
    clsCabeceraJpeg cabecera;
};

clsFoto fFoto(const char *strRuta)
{
    clsFoto foto{strRuta, {}};
    const auto archivo = fAbrirRegular(strRuta);
    const auto fCabecera = [&] {
        clsOrigenArchivo origen(*archivo);
        clsLector lector(origen);
        return fLeerCabeceraJpeg(lector, foto.cabecera);
    };
    if (!archivo || !fCabecera()) {
        std::fprintf(stderr, "No JPEG file: %s\n", strRuta);
        std::exit(1);
    }
    return foto;
}

void fExigir(bool bolBien, const clsFoto &foto)
{
    if (!bolBien) {
        std::fprintf(stderr, "Cannot decode %s\n", foto.strRuta.c_str());
        std::exit(1);
    }
}

/// The least that the thumbnail inside needs, its place being known.
bool fDesnuda(const clsFoto &foto)
{
    QFile archivo(QString::fromStdString(foto.strRuta));
    archivo.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    archivo.seek(foto.cabecera.lngMiniatura);
    return !QImage::fromData(archivo.read(foto.cabecera.lngBytesMini), "JPG").isNull();
}

bool fConLector(const clsFoto &foto, int intLado)
{
    QImageReader lector(QString::fromStdString(foto.strRuta));
    lector.setScaledSize(lector.size().scaled(intLado, intLado, Qt::KeepAspectRatio));
    lector.setAutoTransform(true);
    return !lector.read().isNull();
}

bool fNuestra(const clsFoto &foto, int intLado)
{
    const std::atomic<bool> bolAnulado = false;
    return fExtraerFoto(foto.strRuta, intLado, bolAnulado).extraccion == Extraccion::Hecha;
}

/// What a page does with a photo at first; the rest as well, where that is wanted.
bool fPieza(const clsFoto &foto, int intLado, const clsFuentesMini &fuentes, bool bolTodo)
{
    const clsAnulado anulado = false;
    auto hecho = fPiezaMini(foto.strRuta, intLado, {}, fuentes)(anulado);
    if (hecho.fSigue && bolTodo) {
        hecho = hecho.fSigue(anulado);
    }
    return !hecho.fSigue && hecho.valor.miniatura.extraccion == Extraccion::Hecha;
}

} // namespace

int main(int intArgumentos, char **lstArgumentos)
{
    if (intArgumentos < 3) {
        std::fputs("Usage: miravel_bench_miniaturas BOX FILE...\n", stderr);
        return 1;
    }
    const QCoreApplication aplicacion(intArgumentos, lstArgumentos);
    const int intLado = std::atoi(lstArgumentos[1]);
    std::vector<clsFoto> lstFotos;
    std::string strVips = "vipsthumbnail --size " + std::to_string(intLado) + " -o /dev/shm/%s.ppm";
    for (int intFoto = 2; intFoto < intArgumentos; ++intFoto) {
        lstFotos.push_back(fFoto(lstArgumentos[intFoto]));
        strVips += " '" + lstFotos.back().strRuta + "'";
    }
    const bool bolMini = lstFotos.front().cabecera.lngBytesMini != 0;
    const auto fEnHilos = [&](unsigned intHilos, auto fUna) {
        std::atomic<std::size_t> lngSiguiente = 0;
        std::vector<std::thread> lstHilos;
        for (unsigned intHilo = 0; intHilo < intHilos; ++intHilo) {
            lstHilos.emplace_back([&] {
                for (std::size_t lngFoto = lngSiguiente++; lngFoto < lstFotos.size();
                     lngFoto = lngSiguiente++) {
                    fExigir(fUna(lstFotos[lngFoto]), lstFotos[lngFoto]);
                }
            });
        }
        for (std::thread &hilo : lstHilos) {
            hilo.join();
        }
    };
    const auto fOurs = [&](const clsFoto &foto) { return fNuestra(foto, intLado); };
    // Loads the plug-in. A larger picture would start Qt's threads, which no child process has.
    QImageReader::imageFormatsForMimeType("image/jpeg");
    const auto fReferencia = [&](const clsFoto &foto) {
        return bolMini ? fDesnuda(foto) : fConLector(foto, intLado);
    };
    constexpr int intVueltas = 5;
    std::vector<clsPrueba> lstPruebas = {
        {bolMini ? "bare EXIF thumbnail" : "QImageReader, scaled",
         [&] { fEnHilos(1, fReferencia); }                                                    },
        {"ours, one thread",                                       [&] { fEnHilos(1, fOurs); }},
        {"ours, two threads",                                      [&] { fEnHilos(2, fOurs); }},
    };
    const QTemporaryDir carpeta;
    const clsCacheFotos::clsOrigen origen{carpeta.path().toStdString() + '/', {}};
    const clsFuentesMini fuentes{{}, std::make_shared<clsCacheFotos>(origen)};
    if (!bolMini) {
        const auto fVisita = [&](bool bolPrimera) {
            fEnHilos(
                1, [&](const clsFoto &foto) { return fPieza(foto, intLado, fuentes, bolPrimera); });
        };
        lstPruebas.push_back({"ours, kept for the next visit", [=] { fVisita(true); },
                              [&] { fuentes.fotos->fVaciar(); }});
        lstPruebas.push_back({"ours, the next visit", [=] { fVisita(false); }});
    }
    if (std::system("command -v vipsthumbnail > /dev/null") == 0) {
        lstPruebas.push_back({"vipsthumbnail", [&] {
                                  if (std::system(strVips.c_str()) != 0) {
                                      std::exit(1);
                                  }
                              }});
    }
    return fComparar(lstPruebas, intVueltas);
}
