#include "mov_escritor.h"

#include "bytes.h"

namespace demo {

namespace {

constexpr quint32 lngPorSegundo = 600; // time units of film and track, QuickTime's usual scale

struct clsPelicula {
    const std::vector<QByteArray> &lstCuadros;
    quint32 lngAncho;
    quint32 lngAlto;
    quint32 lngPaso;     // time units per frame
    quint32 lngCreacion; // seconds since 1904

    quint32 fCuantos() const { return static_cast<quint32>(lstCuadros.size()); }
    quint32 fDuracion() const { return fCuantos() * lngPaso; }
};

/// An atom that is open as long as this object lives: its length is filled in at the end.
class clsAtomo {
public:
    clsAtomo(clsBytes &salida, std::string_view strNombre)
        : bytSalida(salida), lngInicio(salida.fLargo())
    {
        bytSalida.fPoner32(0);
        bytSalida.fPonerTexto(strNombre);
    }
    clsAtomo(const clsAtomo &) = delete;
    clsAtomo &operator=(const clsAtomo &) = delete;
    ~clsAtomo()
    {
        const quint32 lngLargo = bytSalida.fLargo() - lngInicio;
        bytSalida.fCorregir32(static_cast<qsizetype>(lngInicio), lngLargo);
    }

private:
    clsBytes &bytSalida;
    quint32 lngInicio;
};

void fMatriz(clsBytes &mov) // the identity: 16.16 fixed point, the last column 2.30
{
    for (const quint32 lngValor : {0x10000U, 0U, 0U, 0U, 0x10000U, 0U, 0U, 0U, 0x40000000U}) {
        mov.fPoner32(lngValor);
    }
}

void fFechas(clsBytes &mov, const clsPelicula &pelicula, quint32 lngIndicadores)
{
    mov.fPoner32(lngIndicadores); // version 0 and flags
    mov.fPoner32(pelicula.lngCreacion);
    mov.fPoner32(pelicula.lngCreacion); // modification
}

void fCabecera(clsBytes &mov, const clsPelicula &pelicula)
{
    const clsAtomo atomo(mov, "mvhd");
    fFechas(mov, pelicula, 0);
    mov.fPoner32(lngPorSegundo);
    mov.fPoner32(pelicula.fDuracion());
    mov.fPoner32(0x10000); // preferred rate 1.0
    mov.fPoner16(0x100);   // preferred volume 1.0
    mov.fPonerCeros(10);
    fMatriz(mov);
    mov.fPonerCeros(24); // preview, poster, selection and current time
    mov.fPoner32(2);     // next track
}

void fCabeceraPista(clsBytes &mov, const clsPelicula &pelicula)
{
    const clsAtomo atomo(mov, "tkhd");
    fFechas(mov, pelicula, 0xF); // enabled, in movie, in preview, in poster
    mov.fPoner32(1);             // track
    mov.fPonerCeros(4);
    mov.fPoner32(pelicula.fDuracion());
    mov.fPonerCeros(16); // reserved, layer, alternate group, volume (no sound), reserved
    fMatriz(mov);
    mov.fPoner32(pelicula.lngAncho << 16);
    mov.fPoner32(pelicula.lngAlto << 16);
}

void fCabeceraMedio(clsBytes &mov, const clsPelicula &pelicula)
{
    const clsAtomo atomo(mov, "mdhd");
    fFechas(mov, pelicula, 0);
    mov.fPoner32(lngPorSegundo);
    mov.fPoner32(pelicula.fDuracion());
    mov.fPonerCeros(4); // language English, quality
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
    mov.fPoner32(0);
    mov.fPoner32(1);
    const clsAtomo entrada(mov, "alis");
    mov.fPoner32(1); // self reference
}

void fDescripcion(clsBytes &mov, const clsPelicula &pelicula)
{
    const clsAtomo atomo(mov, "stsd");
    mov.fPoner32(0);
    mov.fPoner32(1);
    const clsAtomo entrada(mov, "jpeg");
    mov.fPonerCeros(6);
    mov.fPoner16(1);     // data reference
    mov.fPonerCeros(8);  // version, revision, vendor
    mov.fPoner32(0);     // temporal quality
    mov.fPoner32(0x200); // spatial quality: normal
    mov.fPoner16(pelicula.lngAncho);
    mov.fPoner16(pelicula.lngAlto);
    mov.fPoner32(72U << 16); // dots per inch
    mov.fPoner32(72U << 16);
    mov.fPoner32(0);      // data size
    mov.fPoner16(1);      // frames per sample
    mov.fPonerCeros(32);  // compressor name
    mov.fPoner16(24);     // depth
    mov.fPoner16(0xFFFF); // no colour table
}

/// One run of equal frames, all of them in a single chunk.
void fTablas(clsBytes &mov, const clsPelicula &pelicula, quint32 lngLugar)
{
    const clsAtomo tabla(mov, "stbl");
    fDescripcion(mov, pelicula);
    {
        const clsAtomo atomo(mov, "stts");
        for (const quint32 lngValor : {0U, 1U, pelicula.fCuantos(), pelicula.lngPaso}) {
            mov.fPoner32(lngValor);
        }
    }
    {
        const clsAtomo atomo(mov, "stsc");
        for (const quint32 lngValor : {0U, 1U, 1U, pelicula.fCuantos(), 1U}) {
            mov.fPoner32(lngValor);
        }
    }
    {
        const clsAtomo atomo(mov, "stsz");
        for (const quint32 lngValor : {0U, 0U, pelicula.fCuantos()}) {
            mov.fPoner32(lngValor);
        }
        for (const QByteArray &datCuadro : pelicula.lstCuadros) {
            mov.fPoner32(static_cast<quint32>(datCuadro.size()));
        }
    }
    const clsAtomo atomo(mov, "stco");
    for (const quint32 lngValor : {0U, 1U, lngLugar}) {
        mov.fPoner32(lngValor);
    }
}

void fMedio(clsBytes &mov, const clsPelicula &pelicula, quint32 lngLugar)
{
    const clsAtomo medio(mov, "mdia");
    fCabeceraMedio(mov, pelicula);
    fManejador(mov, "mhlrvide");
    const clsAtomo informacion(mov, "minf");
    {
        const clsAtomo video(mov, "vmhd");
        mov.fPoner32(1);    // flags: no lean ahead
        mov.fPonerCeros(8); // copy mode, colours
    }
    fManejador(mov, "dhlralis");
    fDatosAqui(mov);
    fTablas(mov, pelicula, lngLugar);
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
        mov.fPonerTexto("qt  ");
        mov.fPoner32(0);
        mov.fPonerTexto("qt  ");
    }
    const quint32 lngLugar = mov.fLargo() + 8; // the first frame, behind the atom's header
    {
        const clsAtomo datos(mov, "mdat");
        for (const QByteArray &datCuadro : lstCuadros) {
            mov.fPonerBytes(datCuadro);
        }
    }
    {
        const clsAtomo pelicula1(mov, "moov");
        fCabecera(mov, pelicula);
        const clsAtomo pista(mov, "trak");
        fCabeceraPista(mov, pelicula);
        fMedio(mov, pelicula, lngLugar);
    }
    return mov.fDatos();
}

} // namespace demo
