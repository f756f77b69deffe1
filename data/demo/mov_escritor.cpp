#include "escritores.h"

namespace demo {

namespace {

constexpr quint32 lngPorSegundo = 600; // time units of film and track, QuickTime's usual scale

// The identity: 16.16 fixed point, the last column 2.30.
const std::initializer_list<quint32> lngMatriz{0x10000, 0, 0, 0, 0x10000, 0, 0, 0, 0x40000000};

struct clsPelicula {
    const std::vector<QByteArray> &lstCuadros;
    quint32 lngAncho;
    quint32 lngAlto;
    quint32 lngPaso;     // time units per frame
    quint32 lngCreacion; // seconds since 1904

    quint32 fCuantos() const { return static_cast<quint32>(lstCuadros.size()); }
    quint32 fDuracion() const { return fCuantos() * lngPaso; }
};

/// An open atom. Its length stands in front of its name and counts itself.
class clsAtomo : public clsTramo {
public:
    clsAtomo(clsBytes &mov, std::string_view strNombre) : clsTramo(mov, mov.fLargo(), mov.fLargo())
    {
        mov.fPoner32(0);
        mov.fPonerTexto(strNombre);
    }
};

/// An atom of numbers only; the first one is its version and flags.
void fAtomo(clsBytes &mov, std::string_view strNombre, std::initializer_list<quint32> lstValores)
{
    const clsAtomo atomo(mov, strNombre);
    mov.fPoner32(lstValores);
}

void fCabecera(clsBytes &mov, const clsPelicula &p)
{
    const clsAtomo atomo(mov, "mvhd");
    mov.fPoner32({0, p.lngCreacion, p.lngCreacion, lngPorSegundo, p.fDuracion(),
                  0x10000});         // preferred rate 1.0
    mov.fPoner32({0x1000000, 0, 0}); // preferred volume 1.0
    mov.fPoner32(lngMatriz);
    mov.fPoner32({0, 0, 0, 0, 0, 0, 2}); // preview, poster, selection, time; next track
}

void fCabeceraPista(clsBytes &mov, const clsPelicula &p)
{
    const clsAtomo atomo(mov, "tkhd");
    // Enabled, in movie, in preview, in poster; track 1; then reserved, layer, alternate group,
    // volume (no sound), reserved.
    mov.fPoner32({0xF, p.lngCreacion, p.lngCreacion, 1, 0, p.fDuracion(), 0, 0, 0, 0});
    mov.fPoner32(lngMatriz);
    mov.fPoner32({p.lngAncho << 16, p.lngAlto << 16});
}

void fManejador(clsBytes &mov, std::string_view strClases)
{
    const clsAtomo atomo(mov, "hdlr");
    mov.fPoner32(0);
    mov.fPonerTexto(strClases); // component type and subtype
    mov.fPonerCeros(13);        // manufacturer, flags, mask and an empty Pascal string as the name
}

void fDatosAqui(clsBytes &mov) // the samples are in this very file
{
    const clsAtomo atomo(mov, "dinf");
    const clsAtomo lista(mov, "dref");
    mov.fPoner32({0, 1});
    fAtomo(mov, "alis", {1}); // self reference
}

void fDescripcion(clsBytes &mov, const clsPelicula &p)
{
    const clsAtomo atomo(mov, "stsd");
    mov.fPoner32({0, 1});
    const clsAtomo entrada(mov, "jpeg");
    mov.fPoner32({0, 1, 0, 0, 0, 0x200}); // data reference; version, vendor, qualities
    mov.fPoner32({p.lngAncho << 16 | p.lngAlto, 72U << 16, 72U << 16, 0}); // dots per inch
    mov.fPoner32({1U << 16, 0, 0, 0, 0, 0, 0, 0, 24}); // frames per sample, name, depth
    mov.fPoner16(0xFFFF);                              // no colour table
}

/// One run of equal frames, all of them in a single chunk.
void fTablas(clsBytes &mov, const clsPelicula &p, quint32 lngLugar)
{
    const clsAtomo tabla(mov, "stbl");
    fDescripcion(mov, p);
    fAtomo(mov, "stts", {0, 1, p.fCuantos(), p.lngPaso});
    fAtomo(mov, "stsc", {0, 1, 1, p.fCuantos(), 1});
    {
        const clsAtomo atomo(mov, "stsz");
        mov.fPoner32({0, 0, p.fCuantos()});
        for (const QByteArray &datCuadro : p.lstCuadros) {
            mov.fPoner32(static_cast<quint32>(datCuadro.size()));
        }
    }
    fAtomo(mov, "stco", {0, 1, lngLugar});
}

void fMedio(clsBytes &mov, const clsPelicula &p, quint32 lngLugar)
{
    const clsAtomo medio(mov, "mdia");
    // the last number: language English, quality
    fAtomo(mov, "mdhd", {0, p.lngCreacion, p.lngCreacion, lngPorSegundo, p.fDuracion(), 0});
    fManejador(mov, "mhlrvide");
    const clsAtomo informacion(mov, "minf");
    fAtomo(mov, "vmhd", {1, 0, 0}); // no lean ahead; copy mode, colours
    fManejador(mov, "dhlralis");
    fDatosAqui(mov);
    fTablas(mov, p, lngLugar);
}

} // namespace

QByteArray fMov(const std::vector<QByteArray> &lstCuadros, const QSize &tamCuadro,
                int intCuadrosPorSegundo, std::time_t datCreacion)
{
    constexpr std::time_t lngDe1904a1970 = 2082844800;
    const clsPelicula pelicula{lstCuadros, static_cast<quint32>(tamCuadro.width()),
                               static_cast<quint32>(tamCuadro.height()),
                               lngPorSegundo / static_cast<quint32>(intCuadrosPorSegundo),
                               static_cast<quint32>(datCreacion + lngDe1904a1970)};
    clsBytes mov(enmOrden::Motorola);
    {
        const clsAtomo clase(mov, "ftyp");
        mov.fPonerTexto(std::string_view("qt  \0\0\0\0qt  ", 12));
    }
    const quint32 lngLugar = mov.fLargo() + 8; // the first frame, behind the atom's header
    {
        const clsAtomo datos(mov, "mdat");
        for (const QByteArray &datCuadro : lstCuadros) {
            mov.fPonerBytes(datCuadro);
        }
    }
    {
        const clsAtomo contenido(mov, "moov");
        fCabecera(mov, pelicula);
        const clsAtomo pista(mov, "trak");
        fCabeceraPista(mov, pelicula);
        fMedio(mov, pelicula, lngLugar);
    }
    return mov.fDatos();
}

} // namespace demo
