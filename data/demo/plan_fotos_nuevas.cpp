// The photos of the years 2009 to 2023.
#include "plan.h"

namespace demo {

namespace {

const clsCamara camAlbor{"Albor", "Albor 95", enmOrden::Intel, true, 28};
const clsCamara camNoray{"NORAY", "NORAY R90", enmOrden::Motorola, false, 63};
const clsCamara camPoniente{"Poniente", "Poniente TZ60", enmOrden::Motorola, true, 33};
const clsCamara camGarza{"Garza", "Garza G9", enmOrden::Intel, false, 17};
const clsCamara camOlivo{"Olivo", "Olivo 8", enmOrden::Motorola, false, 18};

const clsFilaFoto lstCadiz[] = {
    {"20090714_IMG_0012.JPG", fPintarPlaya,     tamNormal, 1, "2009-07-14 12:03:11"},
    {"20090714_IMG_0013.JPG", fPintarPlaya,     tamNormal, 1, "2009-07-14 12:04:38"},
    {"20090714_IMG_0015.JPG", fPintarFamilia,   tamNormal, 1, "2009-07-14 13:41:02"},
    {"20090715_IMG_0019.JPG", fPintarPueblo,    tamNormal, 1, "2009-07-15 11:25:50"},
    {"20090715_IMG_0022.JPG", fPintarBarcas,    tamAlta,   6, "2009-07-15 12:18:27"},
    {"20090715_IMG_0024.JPG", fPintarAtardecer, tamNormal, 1, "2009-07-15 21:36:14"},
    {"20090716_IMG_0027.JPG", fPintarPlaya,     tamNormal, 1, "2009-07-16 13:12:45"},
    {"20090716_IMG_0029.JPG", fPintarPlaya,     tamAlta,   8, "2009-07-16 13:15:09"},
    {"20090717_IMG_0034.JPG", fPintarBarcas,    tamNormal, 1, "2009-07-17 19:02:33"},
    {"20090717_IMG_0037.JPG", fPintarAtardecer, tamNormal, 1, "2009-07-17 21:40:58"},
    {"20090718_IMG_0040.JPG", fPintarPlaya,     tamNormal, 3, "2009-07-18 12:55:01"},
    {"20090718_IMG_0042.JPG", fPintarPlaya,     tamCine,   1, "2009-07-18 18:30:24"},
    {"X_borrosa.jpg",         fPintarPlaya,     tamNormal, 1, "2009-07-18 18:31:10"},
};

const clsFilaFoto lstInigo[] = {
    {"IMG_0101.JPG", fPintarTarta,   tamNormal, 1, "2009-11-21 17:30:12"},
    {"IMG_0102.JPG", fPintarTarta,   tamNormal, 1, "2009-11-21 17:32:40"},
    {"IMG_0104.JPG", fPintarFamilia, tamNormal, 1, "2009-11-21 17:50:03"},
    {"IMG_0105.JPG", fPintarTarta,   tamAlta,   6, "2009-11-21 18:01:29"},
    {"IMG_0107.JPG", fPintarGato,    tamNormal, 1, "2009-11-21 18:20:55"},
    {"IMG_0110.JPG", fPintarFamilia, tamNormal, 1, "2009-11-21 19:04:18"},
};

const clsFilaFoto lstOtono[] = {
    {"DSC_2101.JPG", fPintarBosque,    tamReflex,     1, "2011-10-29 11:05:42"},
    {"DSC_2103.JPG", fPintarBosque,    tamReflex,     1, "2011-10-29 11:30:16"},
    {"DSC_2107.JPG", fPintarBosque,    tamReflexAlta, 6, "2011-10-29 12:12:39"},
    {"DSC_2112.JPG", fPintarCamino,    tamReflex,     1, "2011-10-30 10:48:20"},
    {"DSC_2115.JPG", fPintarMontanas,  tamReflex,     1, "2011-10-30 13:22:05"},
    {"DSC_2120.JPG", fPintarAtardecer, tamReflex,     1, "2011-10-30 18:05:31"},
};

const clsFilaFoto lstAnoNuevo[] = {
    {"DSC_3001.JPG",             fPintarCiudad,  tamReflex,     1, "2013-12-31 19:20:10"},
    {"DSC_3004.JPG",             fPintarCiudad,  tamReflex,     1, "2013-12-31 20:02:47"},
    {"DSC_3008.JPG",             fPintarNavidad, tamReflex,     1, "2013-12-31 21:15:33"},
    {"DSC_3012.JPG",             fPintarCiudad,  tamReflexAlta, 8, "2013-12-31 23:50:05"},
    {"Panorámica del río.jpg", fPintarCiudad,  tamPanorama,   1, "2014-01-01 18:41:26"},
};

const clsFilaFoto lstSantiago[] = {
    {"P1000101.JPG",      fPintarCamino,    tamNormal, 1, "2015-09-12 08:10:05"},
    {"P1000104.JPG",      fPintarCamino,    tamNormal, 1, "2015-09-12 09:32:44"},
    {"P1000108.JPG",      fPintarPueblo,    tamNormal, 1, "2015-09-12 12:05:58"},
    {"P1000112.JPG",      fPintarBosque,    tamAlta,   6, "2015-09-12 16:27:13"},
    {"P1000115.JPG",      fPintarCamino,    tamAlta,   5, "2015-09-13 08:44:30"},
    {"P1000119.JPG",      fPintarCamino,    tamNormal, 1, "2015-09-13 11:19:02"},
    {"P1000123.JPG",      fPintarMontanas,  tamNormal, 1, "2015-09-13 13:50:49"},
    {"P1000127.JPG",      fPintarFamilia,   tamNormal, 1, "2015-09-14 10:08:21"},
    {"P1000130.JPG",      fPintarCamino,    tamCine,   1, "2015-09-14 12:33:37"},
    {"P1000136.JPG",      fPintarAtardecer, tamNormal, 1, "2015-09-14 20:36:00"},
    {"Monte do Gozo.jpg", fPintarPueblo,    tamEnorme, 1, "2015-09-16 13:02:15"},
};

const clsFilaFoto lstJardin[] = {
    {"P1010201.JPG", fPintarJardin,  tamNormal, 1, "2017-05-06 11:15:00"},
    {"P1010203.JPG", fPintarJardin,  tamNormal, 1, "2017-05-06 11:40:22"},
    {"P1010206.JPG", fPintarGato,    tamNormal, 1, "2017-05-06 17:12:48"},
    {"P1010210.JPG", fPintarJardin,  tamAlta,   7, "2017-05-07 10:55:35"},
    {"P1010214.JPG", fPintarFamilia, tamCine,   1, "2017-05-07 14:20:11"},
};

const clsFilaFoto lstSegovia[] = {
    {"Globos 01.jpg", fPintarGlobos, tamEnorme, 1, "2019-06-08 07:45:12"},
    {"Globos 02.jpg", fPintarGlobos, tamNormal, 1, "2019-06-08 07:58:40"},
    {"Globos 03.jpg", fPintarGlobos, tamAlta,   6, "2019-06-08 08:05:27"},
    {"Globos 04.jpg", fPintarGlobos, tamCine,   1, "2019-06-08 08:21:03"},
    {"Globos 05.jpg", fPintarPueblo, tamNormal, 1, "2019-06-08 10:30:56"},
};

const clsFilaFoto lstCoruna[] = {
    {"IMG_2101.JPG", fPintarBarcas,    tamNormal,   1, "2021-08-10 11:20:09"},
    {"IMG_2103.JPG", fPintarBarcas,    tamCuadrada, 1, "2021-08-10 11:42:31"},
    {"IMG_2108.JPG", fPintarPlaya,     tamNormal,   1, "2021-08-11 17:15:54"},
    {"IMG_2112.JPG", fPintarAtardecer, tamEnorme,   1, "2021-08-11 21:33:20"},
    {"IMG_2115.JPG", fPintarAtardecer, tamMovil,    6, "2021-08-12 21:30:47"},
};

const clsFilaFoto lstAbuela[] = {
    {"IMG_3301.JPG", fPintarTarta,   tamNormal, 1, "2023-03-18 17:02:26"},
    {"IMG_3302.JPG", fPintarTarta,   tamAlta,   6, "2023-03-18 17:05:50"},
    {"IMG_3305.JPG", fPintarFamilia, tamNormal, 1, "2023-03-18 17:30:14"},
    {"IMG_3309.JPG", fPintarJardin,  tamNormal, 3, "2023-03-18 18:11:39"},
};

const clsFilaFoto lstMovil[] = {
    {"IMG_20180512_181023.jpg", fPintarFamilia, tamMovil, 6, "2018-05-12 18:10:23"},
    {"IMG_20180630_221540.jpg", fPintarNoria,   tamMovil, 6, "2018-06-30 22:15:40"},
    {"IMG_20181209_190212.jpg", fPintarCiudad,  tamCine,  1, "2018-12-09 19:02:12"},
    {"IMG_20190120_124455.jpg", fPintarNieve,   tamCine,  3, "2019-01-20 12:44:55"},
    {"IMG_20190803_195130.jpg", fPintarPlaya,   tamCine,  1, "2019-08-03 19:51:30"},
    {"IMG_20201115_163008.jpg", fPintarGato,    tamMovil, 6, "2020-11-15 16:30:08"},
};

const clsFilaFoto lstMensajes[] = {
    {"IMG-20150606-WA0003.jpg", fPintarTarta,   tamCine,     1, "2015-06-06 19:12:00"},
    {"IMG-20150606-WA0004.jpg", fPintarFamilia, tamMovil,    1, "2015-06-06 19:14:00"},
    {"IMG-20161224-WA0011.jpg", fPintarNavidad, tamMovil,    1, "2016-12-24 21:05:00"},
    {"IMG-20220717-WA0000.jpg", fPintarBarcas,  tamCuadrada, 1, "2022-07-17 12:40:00"},
};

const clsFilaFoto lstPrivado[] = {
    {"Regalo sorpresa 1.jpg", fPintarNavidad, tamNormal, 1, "2014-12-20 18:22:10"},
    {"Regalo sorpresa 2.jpg", fPintarNavidad, tamAlta,   8, "2014-12-20 18:25:44"},
    {"Ensayo de la boda.jpg", fPintarBoda,    tamNormal, 1, "2016-04-02 12:50:37"},
};

const clsCarpeta lstCarpetas[] = {
    {"2009/Verano en Cádiz",         &camAlbor,    lstCadiz   },
    {"2009/Cumpleaños de Íñigo",   &camAlbor,    lstInigo   },
    {"2011/Otoño",                   &camNoray,    lstOtono   },
    {"2013/Año Nuevo",               &camNoray,    lstAnoNuevo},
    {"2015/Camino de Santiago",       &camPoniente, lstSantiago},
    {"2017/Nuestro jardín",          &camPoniente, lstJardin  },
    {"2019/Globos en Segovia",        &camPoniente, lstSegovia },
    {"2021/Verano en La Coruña",     &camOlivo,    lstCoruna  },
    {"2023/Cumpleaños de la abuela", &camOlivo,    lstAbuela  },
    {"Móvil",                        &camGarza,    lstMovil   },
    {"Móvil",                        nullptr,      lstMensajes},
    {"X_Privado",                     &camNoray,    lstPrivado },
};

} // namespace

std::span<const clsCarpeta> fCarpetasNuevas() { return lstCarpetas; }

} // namespace demo
