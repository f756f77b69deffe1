// What the demonstration archive consists of. Some files were copied from an old disk on one day,
// without their dates; others come from a camera or a computer whose clock was one year off.
#include "plan.h"

#include <stdexcept>

namespace demo {

namespace {

// Sizes of pictures, named for their proportions.
constexpr QSize tam43(1600, 1200);
constexpr QSize tam34(1200, 1600);
constexpr QSize tam32(1620, 1080);
constexpr QSize tam23(1080, 1620);

const clsCamara camLucera{"Lucera", "Lucera D210", enmOrden::Motorola, false, 40};
const clsCamara camBrisa{"Brisa", "Brisa 1300", enmOrden::Intel, true, 80};
const clsCamara camCalima{"Calima", "Calima P72", enmOrden::Intel, true, 28};
const clsCamara camAlbor{"Albor", "Albor A520", enmOrden::Intel, true, 26};
const clsCamara camAlbor95{"Albor", "Albor 95", enmOrden::Intel, true, 28};
const clsCamara camNoray{"NORAY", "NORAY R50", enmOrden::Motorola, false, 56};
const clsCamara camNoray90{"NORAY", "NORAY R90", enmOrden::Motorola, false, 63};
const clsCamara camPoniente{"Poniente", "Poniente TZ60", enmOrden::Motorola, true, 33};
const clsCamara camGarza{"Garza", "Garza G9", enmOrden::Intel, false, 17};
const clsCamara camOlivo{"Olivo", "Olivo 8", enmOrden::Motorola, false, 18};

constexpr auto strNotas = "Archivo de la familia.\n"
                          "Las fotos del verano de 2009 se copiaron del disco viejo en 2012.\n";
constexpr auto strInvitados =
    "Mesa 1: Begoña, Iñaki, los padrinos\nMesa 2: los primos de La Coruña\n";
constexpr auto strEtapas =
    "Etapa 1: Sarria - Portomarín, 22 km\nEtapa 2: Portomarín - Palas de Rei, 25 km\n"
    "Etapa 3: Palas de Rei - Arzúa, 29 km\n";

const clsFila lstPlan[] = {
    {.strNombre = ""},
    {.strNombre = "notas.txt", .strFecha = "2010-01-10 17:00:00", .strTexto = strNotas},
    {.strNombre = "1998 Boda de Begoña", .pCamara = &camLucera},
    {"Boda_001.jpg", "Boda", tam43, 1, "1998-06-20 12:05:10"},
    {"Boda_002.jpg", "Boda", tam43, 1, "1998-06-20 12:31:44"},
    {"Boda_003.jpg", "Boda", tam34, 6, "1998-06-20 12:40:02"},
    {"Boda_004.jpg", "Familia", tam43, 1, "1998-06-20 13:15:27"},
    {"Boda_005.jpg", "Tarta", tam43, 1, "1998-06-20 16:22:51"},
    {"Boda_006.jpg", "Familia", {1200, 1200}, 1, "1998-06-20 17:48:09"},
    {.strNombre = "1998 Boda de Begoña"},
    {"Escaneada 1.jpg", "Pueblo", tam32, 1, "1998-06-19 19:00:00"},
    {"Escaneada 2.jpg", "Familia", tam23, 1, "1998-06-20 18:00:00"},
    {.strNombre = "lista de invitados.txt",
     .strFecha = "1998-05-02 19:30:00",
     .strTexto = strInvitados},
    {.strNombre = "2000/Primera cámara", .pCamara = &camLucera},
    {"PIC00001.JPG", "Gato", {320, 240}, 1, "2000-03-11 17:20:40"},
    {"PIC00002.JPG", "Jardin", {320, 240}, 1, "2000-03-12 11:02:13"},
    {"PIC00003.JPG", "Familia", {320, 240}, 1, "2000-03-19 13:45:55"},
    {"PIC00004.JPG", "Playa", {320, 240}, 1, "2000-08-05 12:30:21"},
    {.strNombre = "2001/Casa del pueblo", .pCamara = &camBrisa},
    {"DSCF0021.JPG", "Pueblo", tam43, 1, "2001-04-13 11:12:00"},
    {"DSCF0022.JPG", "Jardin", tam43, 1, "2001-04-13 11:40:36"},
    {"DSCF0024.JPG", "Gato", tam43, 1, "2001-04-13 17:03:18"},
    {"DSCF0027.JPG", "Familia", tam43, 2, "2001-04-14 13:30:42"},
    {"DSCF0031.JPG", "Camino", tam43, 1, "2001-04-15 18:55:07"},
    {.strNombre = "2003/Navidad", .pCamara = &camCalima},
    {"DSC00106.JPG", "Navidad", tam43, 1, "2003-12-24 20:12:09"},
    {"DSC00108.JPG", "Navidad", tam43, 1, "2003-12-24 21:40:31", "2004-12-24 21:40:31"},
    {"DSC00109.JPG", "Navidad", tam34, 8, "2003-12-24 22:05:17", "2004-12-24 22:05:17"},
    {"DSC00110.JPG", "Familia", tam43, 1, "2003-12-25 10:02:58"},
    {"DSC00112.JPG", "Navidad", tam43, 1, "2003-12-25 10:31:46", "2004-12-25 10:31:46"},
    {"DSC00113.JPG", "Gato", tam43, 1, "2003-12-25 16:20:05"},
    {"DSC00115.JPG", "Nieve", tam43, 1, "2003-12-26 12:04:33"},
    {"DSC00118.JPG", "Nieve", tam34, 6, "2003-12-26 12:25:12"},
    {"MVI_0107.AVI", "Nieve", {}, 1, "2003-12-26 12:10:44", nullptr, 30},
    {.strNombre = "2004/Excursión a la Peña", .pCamara = &camAlbor},
    {"IMG_0201.JPG", "Camino", tam43, 1, "2004-10-09 10:15:30"},
    {"IMG_0202.JPG", "Montanas", tam43, 1, "2004-10-09 11:02:48"},
    {"IMG_0204.JPG", "Montanas", tam43, 1, "2004-10-09 13:05:20", "2003-10-09 13:05:20"},
    {"IMG_0205.JPG", "Bosque", tam34, 6, "2004-10-09 14:31:11"},
    {"IMG_0206.JPG", "Bosque", tam43, 3, "2004-10-09 15:48:02", "2003-10-09 15:48:02"},
    {"IMG_0209.JPG", "Atardecer", tam43, 1, "2004-10-09 19:20:37"},
    {.strNombre = "2006/Feria de Sevilla", .pCamara = &camAlbor},
    {"IMG_0420.JPG", "Noria", tam43, 1, "2006-05-05 21:45:10"},
    {"IMG_0422.JPG", "Noria", tam34, 8, "2006-05-05 21:58:29"},
    {"IMG_0427.JPG", "Noria", tam43, 1, "2006-05-05 22:14:56"},
    {"IMG_0433.JPG", "Familia", tam43, 1, "2006-05-06 13:20:20"},
    {"IMG_0436.JPG", "Ciudad", tam43, 1, "2006-05-06 23:05:41"},
    {"IMG_0440.JPG", "Pueblo", tam43, 1, "2006-05-07 11:37:03"},
    {"MVI_0431.AVI", "Noria", {}, 1, "2006-05-05 22:31:08", nullptr, 30},
    {.strNombre = "2007/Nieve en el Pirineo", .pCamara = &camNoray},
    {"DSC_1001.JPG", "Nieve", tam32, 1, "2007-02-17 10:30:15"},
    {"DSC_1004.JPG", "Nieve", tam32, 1, "2007-02-17 11:12:40"},
    {"DSC_1007.JPG", "Montanas", tam32, 1, "2007-02-17 12:50:07"},
    {"DSC_1010.JPG", "Montanas", tam23, 6, "2007-02-17 13:24:52"},
    {"DSC_1012.JPG", "Nieve", tam32, 4, "2007-02-18 09:58:31"},
    {"DSC_1015.JPG", "Montanas", tam32, 1, "2007-02-18 16:44:19"},
    {.strNombre = "2009/Verano en Cádiz", .pCamara = &camAlbor95},
    {"20090714_IMG_0012.JPG", "Playa", tam43, 1, "2009-07-14 12:03:11", "2012-03-04 18:20:02"},
    {"20090714_IMG_0013.JPG", "Playa", tam43, 1, "2009-07-14 12:04:38", "2012-03-04 18:20:02"},
    {"20090714_IMG_0015.JPG", "Familia", tam43, 1, "2009-07-14 13:41:02", "2012-03-04 18:20:03"},
    {"20090715_IMG_0019.JPG", "Pueblo", tam43, 1, "2009-07-15 11:25:50", "2012-03-04 18:20:04"},
    {"20090715_IMG_0022.JPG", "Barcas", tam34, 6, "2009-07-15 12:18:27", "2012-03-04 18:20:05"},
    {"20090715_IMG_0024.JPG", "Atardecer", tam43, 1, "2009-07-15 21:36:14"},
    {"20090716_IMG_0027.JPG", "Playa", tam43, 1, "2009-07-16 13:12:45", "2012-03-04 18:20:06"},
    {"20090716_IMG_0029.JPG", "Playa", tam34, 8, "2009-07-16 13:15:09"},
    {"20090717_IMG_0034.JPG", "Barcas", tam43, 1, "2009-07-17 19:02:33"},
    {"20090717_IMG_0037.JPG", "Atardecer", tam43, 1, "2009-07-17 21:40:58"},
    {"20090718_IMG_0040.JPG", "Playa", tam43, 3, "2009-07-18 12:55:01", "2012-03-04 18:20:08"},
    {"20090718_IMG_0042.JPG", "Playa", {1600, 900}, 1, "2009-07-18 18:30:24"},
    {"X_borrosa.jpg", "Playa", tam43, 1, "2009-07-18 18:31:10"},
    {"20090716_0031.MOV", "Playa", {}, 1, "2009-07-16 13:20:19", nullptr, 30},
    {.strNombre = "2009/Cumpleaños de Íñigo", .pCamara = &camAlbor95},
    {"IMG_0101.JPG", "Tarta", tam43, 1, "2009-11-21 17:30:12"},
    {"IMG_0102.JPG", "Tarta", tam43, 1, "2009-11-21 17:32:40"},
    {"IMG_0104.JPG", "Familia", tam43, 1, "2009-11-21 17:50:03"},
    {"IMG_0105.JPG", "Tarta", tam34, 6, "2009-11-21 18:01:29"},
    {"IMG_0107.JPG", "Gato", tam43, 1, "2009-11-21 18:20:55"},
    {"IMG_0110.JPG", "Familia", tam43, 1, "2009-11-21 19:04:18"},
    {.strNombre = "2011/Otoño", .pCamara = &camNoray90},
    {"DSC_2101.JPG", "Bosque", tam32, 1, "2011-10-29 11:05:42"},
    {"DSC_2103.JPG", "Bosque", tam32, 1, "2011-10-29 11:30:16"},
    {"DSC_2107.JPG", "Bosque", tam23, 6, "2011-10-29 12:12:39"},
    {"DSC_2112.JPG", "Camino", tam32, 1, "2011-10-30 10:48:20"},
    {"DSC_2115.JPG", "Montanas", tam32, 1, "2011-10-30 13:22:05"},
    {"DSC_2120.JPG", "Atardecer", tam32, 1, "2011-10-30 18:05:31"},
    {"Puesta de sol.avi", "Atardecer", {}, 1, "2011-10-30 18:12:50", nullptr, 24},
    {.strNombre = "2013/Año Nuevo", .pCamara = &camNoray90},
    {"DSC_3001.JPG", "Ciudad", tam32, 1, "2013-12-31 19:20:10"},
    {"DSC_3004.JPG", "Ciudad", tam32, 1, "2013-12-31 20:02:47"},
    {"DSC_3008.JPG", "Navidad", tam32, 1, "2013-12-31 21:15:33"},
    {"DSC_3012.JPG", "Ciudad", tam23, 8, "2013-12-31 23:50:05"},
    {"Panorámica del río.jpg", "Ciudad", {4200, 1050}, 1, "2014-01-01 18:41:26"},
    {.strNombre = "2015/Camino de Santiago", .pCamara = &camPoniente},
    {"P1000101.JPG", "Camino", tam43, 1, "2015-09-12 08:10:05"},
    {"P1000104.JPG", "Camino", tam43, 1, "2015-09-12 09:32:44"},
    {"P1000108.JPG", "Pueblo", tam43, 1, "2015-09-12 12:05:58"},
    {"P1000112.JPG", "Bosque", tam34, 6, "2015-09-12 16:27:13"},
    {"P1000115.JPG", "Camino", tam34, 5, "2015-09-13 08:44:30"},
    {"P1000119.JPG", "Camino", tam43, 1, "2015-09-13 11:19:02"},
    {"P1000123.JPG", "Montanas", tam43, 1, "2015-09-13 13:50:49"},
    {"P1000127.JPG", "Familia", tam43, 1, "2015-09-14 10:08:21"},
    {"P1000130.JPG", "Camino", {1600, 900}, 1, "2015-09-14 12:33:37"},
    {"P1000136.JPG", "Atardecer", tam43, 1, "2015-09-14 20:36:00"},
    {"Monte do Gozo.jpg", "Pueblo", {4000, 3000}, 1, "2015-09-16 13:02:15"},
    {.strNombre = "notas.txt", .strFecha = "2015-09-14 21:45:00", .strTexto = strEtapas},
    {.strNombre = "2017/Nuestro jardín", .pCamara = &camPoniente},
    {"P1010201.JPG", "Jardin", tam43, 1, "2017-05-06 11:15:00"},
    {"P1010203.JPG", "Jardin", tam43, 1, "2017-05-06 11:40:22"},
    {"P1010206.JPG", "Gato", tam43, 1, "2017-05-06 17:12:48"},
    {"P1010210.JPG", "Jardin", tam34, 7, "2017-05-07 10:55:35"},
    {"P1010214.JPG", "Familia", {1600, 900}, 1, "2017-05-07 14:20:11"},
    {.strNombre = "2019/Globos en Segovia", .pCamara = &camPoniente},
    {"Globos 01.jpg", "Globos", {4000, 3000}, 1, "2019-06-08 07:45:12"},
    {"Globos 02.jpg", "Globos", tam43, 1, "2019-06-08 07:58:40"},
    {"Globos 03.jpg", "Globos", tam34, 6, "2019-06-08 08:05:27"},
    {"Globos 04.jpg", "Globos", {1600, 900}, 1, "2019-06-08 08:21:03"},
    {"Globos 05.jpg", "Pueblo", tam43, 1, "2019-06-08 10:30:56"},
    {"Despegue.mov", "Globos", {}, 1, "2019-06-08 08:14:33", nullptr, 30},
    {.strNombre = "2021/Verano en La Coruña", .pCamara = &camOlivo},
    {"IMG_2101.JPG", "Barcas", tam43, 1, "2021-08-10 11:20:09"},
    {"IMG_2103.JPG", "Barcas", {1200, 1200}, 1, "2021-08-10 11:42:31"},
    {"IMG_2108.JPG", "Playa", tam43, 1, "2021-08-11 17:15:54"},
    {"IMG_2112.JPG", "Atardecer", {4000, 3000}, 1, "2021-08-11 21:33:20"},
    {"IMG_2115.JPG", "Atardecer", {1080, 1920}, 6, "2021-08-12 21:30:47"},
    {.strNombre = "2023/Cumpleaños de la abuela", .pCamara = &camOlivo},
    {"IMG_3301.JPG", "Tarta", tam43, 1, "2023-03-18 17:02:26"},
    {"IMG_3302.JPG", "Tarta", tam34, 6, "2023-03-18 17:05:50"},
    {"IMG_3305.JPG", "Familia", tam43, 1, "2023-03-18 17:30:14"},
    {"IMG_3309.JPG", "Jardin", tam43, 3, "2023-03-18 18:11:39"},
    {.strNombre = "Móvil", .pCamara = &camGarza},
    {"IMG_20180512_181023.jpg", "Familia", {1080, 1920}, 6, "2018-05-12 18:10:23"},
    {"IMG_20180630_221540.jpg", "Noria", {1080, 1920}, 6, "2018-06-30 22:15:40"},
    {"IMG_20181209_190212.jpg", "Ciudad", {1600, 900}, 1, "2018-12-09 19:02:12"},
    {"IMG_20190120_124455.jpg", "Nieve", {1600, 900}, 3, "2019-01-20 12:44:55"},
    {"IMG_20190803_195130.jpg", "Playa", {1600, 900}, 1, "2019-08-03 19:51:30"},
    {"IMG_20201115_163008.jpg", "Gato", {1080, 1920}, 6, "2020-11-15 16:30:08"},
    {.strNombre = "Móvil"},
    {"IMG-20150606-WA0003.jpg", "Tarta", {1600, 900}, 1, "2015-06-06 19:12:00"},
    {"IMG-20150606-WA0004.jpg", "Familia", {1080, 1920}, 1, "2015-06-06 19:14:00"},
    {"IMG-20161224-WA0011.jpg", "Navidad", {1080, 1920}, 1, "2016-12-24 21:05:00"},
    {"IMG-20220717-WA0000.jpg", "Barcas", {1200, 1200}, 1, "2022-07-17 12:40:00"},
    {.strNombre = "X_Privado", .pCamara = &camNoray90},
    {"Regalo sorpresa 1.jpg", "Navidad", tam43, 1, "2014-12-20 18:22:10"},
    {"Regalo sorpresa 2.jpg", "Navidad", tam34, 8, "2014-12-20 18:25:44"},
    {"Ensayo de la boda.jpg", "Boda", tam43, 1, "2016-04-02 12:50:37"},
};

} // namespace

std::span<const clsFila> fPlan() { return lstPlan; }

std::time_t fInstante(const std::string &strFecha)
{
    std::tm datPartes{};
    const char *const pFin = ::strptime(strFecha.c_str(), "%Y-%m-%d %H:%M:%S", &datPartes);
    if (pFin == nullptr || *pFin != '\0') {
        throw std::runtime_error("fecha mal escrita en el plan: " + strFecha);
    }
    datPartes.tm_isdst = -1; // the C library knows whether it was summer time
    return std::mktime(&datPartes);
}

} // namespace demo
