#include "avi_escritor.h"

#include "bytes.h"

#include <algorithm>

namespace demo {

namespace {

constexpr quint32 lngTieneIndice = 0x10; // AVIF_HASINDEX
constexpr quint32 lngCuadroClave = 0x10; // AVIIF_KEYFRAME

struct clsPelicula {
    const std::vector<QByteArray> &lstCuadros;
    quint32 lngAncho;
    quint32 lngAlto;
    quint32 lngPorSegundo;

    quint32 fCuantos() const { return static_cast<quint32>(lstCuadros.size()); }
    quint32 fMayor() const
    {
        qsizetype lngMayor = 0;
        for (const QByteArray &datCuadro : lstCuadros) {
            lngMayor = std::max(lngMayor, datCuadro.size());
        }
        return static_cast<quint32>(lngMayor);
    }
};

/// Begins a chunk; the result goes to fCerrar.
quint32 fAbrir(clsBytes &avi, std::string_view strNombre)
{
    avi.fPonerTexto(strNombre);
    avi.fPoner32(0);
    return avi.fLargo();
}

quint32 fAbrirLista(clsBytes &avi, std::string_view strClase, std::string_view strNombre)
{
    const quint32 lngInicio = fAbrir(avi, strClase);
    avi.fPonerTexto(strNombre);
    return lngInicio;
}

/// Fills in the length. Chunks are padded to an even length that the length does not count.
void fCerrar(clsBytes &avi, quint32 lngInicio)
{
    const quint32 lngLargo = avi.fLargo() - lngInicio;
    avi.fCorregir32(static_cast<qsizetype>(lngInicio) - 4, lngLargo);
    avi.fPonerCeros(static_cast<int>(lngLargo % 2));
}

void fCabecera(clsBytes &avi, const clsPelicula &pelicula) // AVIMAINHEADER
{
    const quint32 lngInicio = fAbrir(avi, "avih");
    avi.fPoner32(1000000 / pelicula.lngPorSegundo);           // microseconds per frame
    avi.fPoner32(pelicula.fMayor() * pelicula.lngPorSegundo); // at most so many bytes per second
    avi.fPoner32(0);                                          // padding granularity
    avi.fPoner32(lngTieneIndice);
    avi.fPoner32(pelicula.fCuantos());
    avi.fPoner32(0); // initial frames
    avi.fPoner32(1); // streams
    avi.fPoner32(pelicula.fMayor());
    avi.fPoner32(pelicula.lngAncho);
    avi.fPoner32(pelicula.lngAlto);
    avi.fPonerCeros(16); // reserved
    fCerrar(avi, lngInicio);
}

void fCabeceraFlujo(clsBytes &avi, const clsPelicula &pelicula) // AVISTREAMHEADER
{
    const quint32 lngInicio = fAbrir(avi, "strh");
    avi.fPonerTexto("vidsMJPG");
    avi.fPonerCeros(12); // flags, priority, language, initial frames
    avi.fPoner32(1);     // scale: rate/scale are the frames per second
    avi.fPoner32(pelicula.lngPorSegundo);
    avi.fPoner32(0); // start
    avi.fPoner32(pelicula.fCuantos());
    avi.fPoner32(pelicula.fMayor());
    avi.fPoner32(0xFFFFFFFF); // quality: the driver's default
    avi.fPoner32(0);          // sample size: varies
    avi.fPonerCeros(4);       // left, top
    avi.fPoner16(pelicula.lngAncho);
    avi.fPoner16(pelicula.lngAlto);
    fCerrar(avi, lngInicio);
}

void fFormatoFlujo(clsBytes &avi, const clsPelicula &pelicula) // BITMAPINFOHEADER
{
    const quint32 lngInicio = fAbrir(avi, "strf");
    avi.fPoner32(40); // its own size
    avi.fPoner32(pelicula.lngAncho);
    avi.fPoner32(pelicula.lngAlto);
    avi.fPoner16(1);  // planes
    avi.fPoner16(24); // bits per pixel
    avi.fPonerTexto("MJPG");
    avi.fPoner32(pelicula.lngAncho * pelicula.lngAlto * 3);
    avi.fPonerCeros(16); // pixels per metre, palette
    fCerrar(avi, lngInicio);
}

void fCabeceras(clsBytes &avi, const clsPelicula &pelicula)
{
    const quint32 lngLista = fAbrirLista(avi, "LIST", "hdrl");
    fCabecera(avi, pelicula);
    const quint32 lngFlujo = fAbrirLista(avi, "LIST", "strl");
    fCabeceraFlujo(avi, pelicula);
    fFormatoFlujo(avi, pelicula);
    fCerrar(avi, lngFlujo);
    fCerrar(avi, lngLista);
}

/// The frames, and behind them the index; its offsets count from the name "movi".
void fCuadros(clsBytes &avi, const clsPelicula &pelicula)
{
    clsBytes indice(enmOrden::Intel);
    const quint32 lngLista = fAbrirLista(avi, "LIST", "movi");
    for (const QByteArray &datCuadro : pelicula.lstCuadros) {
        indice.fPonerTexto("00dc");
        indice.fPoner32(lngCuadroClave);
        indice.fPoner32(avi.fLargo() - lngLista);
        indice.fPoner32(static_cast<quint32>(datCuadro.size()));
        const quint32 lngInicio = fAbrir(avi, "00dc");
        avi.fPonerBytes(datCuadro);
        fCerrar(avi, lngInicio);
    }
    fCerrar(avi, lngLista);
    const quint32 lngIndice = fAbrir(avi, "idx1");
    avi.fPonerBytes(indice.fDatos());
    fCerrar(avi, lngIndice);
}

} // namespace

QByteArray fAvi(const std::vector<QByteArray> &lstCuadros, const QSize &tamCuadro,
                int intCuadrosPorSegundo)
{
    const clsPelicula pelicula{lstCuadros, static_cast<quint32>(tamCuadro.width()),
                               static_cast<quint32>(tamCuadro.height()),
                               static_cast<quint32>(intCuadrosPorSegundo)};
    clsBytes avi(enmOrden::Intel);
    const quint32 lngTodo = fAbrirLista(avi, "RIFF", "AVI ");
    fCabeceras(avi, pelicula);
    fCuadros(avi, pelicula);
    fCerrar(avi, lngTodo);
    return avi.fDatos();
}

} // namespace demo
