#include "plan.h"

#include <algorithm>
#include <iterator>

namespace demo {

namespace {

using enum enmContenedor;

const clsFilaVideo lstVideos[] = {
    {"2003/Navidad/MVI_0107.AVI",               Avi, fPintarNieve,     30, "2003-12-26 12:10:44"},
    {"2006/Feria de Sevilla/MVI_0431.AVI",      Avi, fPintarNoria,     30, "2006-05-05 22:31:08"},
    {"2009/Verano en Cádiz/20090716_0031.MOV", Mov, fPintarPlaya,     30, "2009-07-16 13:20:19"},
    {"2011/Otoño/Puesta de sol.avi",           Avi, fPintarAtardecer, 24, "2011-10-30 18:12:50"},
    {"2019/Globos en Segovia/Despegue.mov",     Mov, fPintarGlobos,    30, "2019-06-08 08:14:33"},
};

const clsFilaTexto lstTextos[] = {
    {"notas.txt",                                   "2010-01-10 17:00:00",
     "Archivo de la familia.\nLas fotos del verano de 2009 se copiaron del disco viejo en 2012.\n"},
    {"1998 Boda de Begoña/lista de invitados.txt", "1998-05-02 19:30:00",
     "Mesa 1: Begoña, Iñaki, los padrinos\nMesa 2: los primos de La Coruña\n"                  },
    {"2015/Camino de Santiago/notas.txt",           "2015-09-14 21:45:00",
     "Etapa 1: Sarria - Portomarín, 22 km\nEtapa 2: Portomarín - Palas de Rei, 25 km\n"
     "Etapa 3: Palas de Rei - Arzúa, 29 km\n"                                                    },
};

// Some were copied from an old disk on one day, without their dates; others come from a camera or
// a computer whose clock was one year off.
const clsFechaErronea lstErroneas[] = {
    {"2003/Navidad/DSC00108.JPG",                   "2004-12-24 21:40:31"},
    {"2003/Navidad/DSC00109.JPG",                   "2004-12-24 22:05:17"},
    {"2003/Navidad/DSC00112.JPG",                   "2004-12-25 10:31:46"},
    {"2004/Excursión a la Peña/IMG_0204.JPG",     "2003-10-09 13:05:20"},
    {"2004/Excursión a la Peña/IMG_0206.JPG",     "2003-10-09 15:48:02"},
    {"2009/Verano en Cádiz/20090714_IMG_0012.JPG", "2012-03-04 18:20:02"},
    {"2009/Verano en Cádiz/20090714_IMG_0013.JPG", "2012-03-04 18:20:02"},
    {"2009/Verano en Cádiz/20090714_IMG_0015.JPG", "2012-03-04 18:20:03"},
    {"2009/Verano en Cádiz/20090715_IMG_0019.JPG", "2012-03-04 18:20:04"},
    {"2009/Verano en Cádiz/20090715_IMG_0022.JPG", "2012-03-04 18:20:05"},
    {"2009/Verano en Cádiz/20090716_IMG_0027.JPG", "2012-03-04 18:20:06"},
    {"2009/Verano en Cádiz/20090718_IMG_0040.JPG", "2012-03-04 18:20:08"},
};

} // namespace

std::span<const clsFilaVideo> fVideos() { return lstVideos; }

std::span<const clsFilaTexto> fTextos() { return lstTextos; }

std::string fFechaDelFichero(const std::string &strRuta, const char *strFecha)
{
    const auto *const pErronea =
        std::find_if(std::begin(lstErroneas), std::end(lstErroneas),
                     [&strRuta](const clsFechaErronea &fila) { return strRuta == fila.strRuta; });
    return pErronea == std::end(lstErroneas) ? strFecha : pErronea->strFecha;
}

} // namespace demo
