#include "escritores.h"

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
    quint32 lngCuantos; // frames
    quint32 lngMayor;   // bytes of the largest one
};

/// An open chunk. Its length stands behind its name and counts what follows, but not the byte that
/// may make it even.
class clsTrozo : public clsTramo {
public:
    clsTrozo(clsBytes &avi, std::string_view strNombre, std::string_view strClase = {})
        : clsTramo(avi, avi.fLargo() + 4, avi.fLargo() + 8, 2)
    {
        avi.fPonerTexto(strNombre);
        avi.fPoner32(0);
        avi.fPonerTexto(strClase);
    }
};

void fCabeceras(clsBytes &avi, const clsPelicula &p)
{
    const clsTrozo lista(avi, "LIST", "hdrl");
    {
        const clsTrozo cabecera(avi, "avih");          // AVIMAINHEADER
        avi.fPoner32({1000000 / p.lngPorSegundo,       // microseconds per frame
                      p.lngMayor * p.lngPorSegundo,    // at most so many bytes per second
                      0, lngTieneIndice, p.lngCuantos, // padding, flags, frames
                      0, 1, p.lngMayor,                // initial frames, streams, buffer
                      p.lngAncho, p.lngAlto, 0, 0, 0, 0});
    }
    const clsTrozo flujo(avi, "LIST", "strl");
    {
        const clsTrozo cabecera(avi, "strh"); // AVISTREAMHEADER
        avi.fPonerTexto("vidsMJPG");
        avi.fPoner32({0, 0, 0, 1, p.lngPorSegundo, // flags, priority, initial frames; scale, rate
                      0, p.lngCuantos, p.lngMayor, // start, length, buffer
                      0xFFFFFFFF, 0, 0, // the driver's quality, sample size, left and top
                      p.lngAncho | p.lngAlto << 16});
    }
    const clsTrozo formato(avi, "strf"); // BITMAPINFOHEADER: its size; planes, bits per pixel
    avi.fPoner32({40, p.lngAncho, p.lngAlto, 1 | 24U << 16});
    avi.fPonerTexto("MJPG");
    avi.fPoner32({p.lngAncho * p.lngAlto * 3, 0, 0, 0, 0}); // pixels per metre, palette
}

/// The frames, and behind them the index; its offsets count from the name "movi".
void fCuadros(clsBytes &avi, const clsPelicula &p)
{
    clsBytes indice(enmOrden::Intel);
    {
        const clsTrozo lista(avi, "LIST", "movi");
        for (const QByteArray &datCuadro : p.lstCuadros) {
            indice.fPonerTexto("00dc");
            indice.fPoner32(
                {lngCuadroClave, lista.fLargo(), static_cast<quint32>(datCuadro.size())});
            const clsTrozo cuadro(avi, "00dc");
            avi.fPonerBytes(datCuadro);
        }
    }
    const clsTrozo trozo(avi, "idx1");
    avi.fPonerBytes(indice.fDatos());
}

} // namespace

QByteArray fAvi(const std::vector<QByteArray> &lstCuadros, const QSize &tamCuadro,
                int intCuadrosPorSegundo)
{
    qsizetype lngMayor = 0;
    for (const QByteArray &datCuadro : lstCuadros) {
        lngMayor = std::max(lngMayor, datCuadro.size());
    }
    const clsPelicula pelicula{lstCuadros,
                               static_cast<quint32>(tamCuadro.width()),
                               static_cast<quint32>(tamCuadro.height()),
                               static_cast<quint32>(intCuadrosPorSegundo),
                               static_cast<quint32>(lstCuadros.size()),
                               static_cast<quint32>(lngMayor)};
    clsBytes avi(enmOrden::Intel);
    {
        const clsTrozo todo(avi, "RIFF", "AVI ");
        fCabeceras(avi, pelicula);
        fCuadros(avi, pelicula);
    }
    return avi.fDatos();
}

} // namespace demo
