// The photos of the years 1998 to 2008.
#include "plan.h"

namespace demo {

namespace {

const clsCamara camLucera{"Lucera", "Lucera D210", enmOrden::Motorola, false, 40};
const clsCamara camBrisa{"Brisa", "Brisa 1300", enmOrden::Intel, true, 80};
const clsCamara camCalima{"Calima", "Calima P72", enmOrden::Intel, true, 28};
const clsCamara camAlbor{"Albor", "Albor A520", enmOrden::Intel, true, 26};
const clsCamara camNoray{"NORAY", "NORAY R50", enmOrden::Motorola, false, 56};

const clsFilaFoto lstBoda[] = {
    {"Boda_001.jpg", fPintarBoda,    tamNormal,   1, "1998-06-20 12:05:10"},
    {"Boda_002.jpg", fPintarBoda,    tamNormal,   1, "1998-06-20 12:31:44"},
    {"Boda_003.jpg", fPintarBoda,    tamAlta,     6, "1998-06-20 12:40:02"},
    {"Boda_004.jpg", fPintarFamilia, tamNormal,   1, "1998-06-20 13:15:27"},
    {"Boda_005.jpg", fPintarTarta,   tamNormal,   1, "1998-06-20 16:22:51"},
    {"Boda_006.jpg", fPintarFamilia, tamCuadrada, 1, "1998-06-20 17:48:09"},
};

const clsFilaFoto lstBodaEscaneadas[] = {
    {"Escaneada 1.jpg", fPintarPueblo,  tamReflex,     1, "1998-06-19 19:00:00"},
    {"Escaneada 2.jpg", fPintarFamilia, tamReflexAlta, 1, "1998-06-20 18:00:00"},
};

const clsFilaFoto lstPrimera[] = {
    {"PIC00001.JPG", fPintarGato,    tamAntigua, 1, "2000-03-11 17:20:40"},
    {"PIC00002.JPG", fPintarJardin,  tamAntigua, 1, "2000-03-12 11:02:13"},
    {"PIC00003.JPG", fPintarFamilia, tamAntigua, 1, "2000-03-19 13:45:55"},
    {"PIC00004.JPG", fPintarPlaya,   tamAntigua, 1, "2000-08-05 12:30:21"},
};

const clsFilaFoto lstCasa[] = {
    {"DSCF0021.JPG", fPintarPueblo,  tamNormal, 1, "2001-04-13 11:12:00"},
    {"DSCF0022.JPG", fPintarJardin,  tamNormal, 1, "2001-04-13 11:40:36"},
    {"DSCF0024.JPG", fPintarGato,    tamNormal, 1, "2001-04-13 17:03:18"},
    {"DSCF0027.JPG", fPintarFamilia, tamNormal, 2, "2001-04-14 13:30:42"},
    {"DSCF0031.JPG", fPintarCamino,  tamNormal, 1, "2001-04-15 18:55:07"},
};

const clsFilaFoto lstNavidad[] = {
    {"DSC00106.JPG", fPintarNavidad, tamNormal, 1, "2003-12-24 20:12:09"},
    {"DSC00108.JPG", fPintarNavidad, tamNormal, 1, "2003-12-24 21:40:31"},
    {"DSC00109.JPG", fPintarNavidad, tamAlta,   8, "2003-12-24 22:05:17"},
    {"DSC00110.JPG", fPintarFamilia, tamNormal, 1, "2003-12-25 10:02:58"},
    {"DSC00112.JPG", fPintarNavidad, tamNormal, 1, "2003-12-25 10:31:46"},
    {"DSC00113.JPG", fPintarGato,    tamNormal, 1, "2003-12-25 16:20:05"},
    {"DSC00115.JPG", fPintarNieve,   tamNormal, 1, "2003-12-26 12:04:33"},
    {"DSC00118.JPG", fPintarNieve,   tamAlta,   6, "2003-12-26 12:25:12"},
};

const clsFilaFoto lstPena[] = {
    {"IMG_0201.JPG", fPintarCamino,    tamNormal, 1, "2004-10-09 10:15:30"},
    {"IMG_0202.JPG", fPintarMontanas,  tamNormal, 1, "2004-10-09 11:02:48"},
    {"IMG_0204.JPG", fPintarMontanas,  tamNormal, 1, "2004-10-09 13:05:20"},
    {"IMG_0205.JPG", fPintarBosque,    tamAlta,   6, "2004-10-09 14:31:11"},
    {"IMG_0206.JPG", fPintarBosque,    tamNormal, 3, "2004-10-09 15:48:02"},
    {"IMG_0209.JPG", fPintarAtardecer, tamNormal, 1, "2004-10-09 19:20:37"},
};

const clsFilaFoto lstFeria[] = {
    {"IMG_0420.JPG", fPintarNoria,   tamNormal, 1, "2006-05-05 21:45:10"},
    {"IMG_0422.JPG", fPintarNoria,   tamAlta,   8, "2006-05-05 21:58:29"},
    {"IMG_0427.JPG", fPintarNoria,   tamNormal, 1, "2006-05-05 22:14:56"},
    {"IMG_0433.JPG", fPintarFamilia, tamNormal, 1, "2006-05-06 13:20:20"},
    {"IMG_0436.JPG", fPintarCiudad,  tamNormal, 1, "2006-05-06 23:05:41"},
    {"IMG_0440.JPG", fPintarPueblo,  tamNormal, 1, "2006-05-07 11:37:03"},
};

const clsFilaFoto lstPirineo[] = {
    {"DSC_1001.JPG", fPintarNieve,    tamReflex,     1, "2007-02-17 10:30:15"},
    {"DSC_1004.JPG", fPintarNieve,    tamReflex,     1, "2007-02-17 11:12:40"},
    {"DSC_1007.JPG", fPintarMontanas, tamReflex,     1, "2007-02-17 12:50:07"},
    {"DSC_1010.JPG", fPintarMontanas, tamReflexAlta, 6, "2007-02-17 13:24:52"},
    {"DSC_1012.JPG", fPintarNieve,    tamReflex,     4, "2007-02-18 09:58:31"},
    {"DSC_1015.JPG", fPintarMontanas, tamReflex,     1, "2007-02-18 16:44:19"},
};

const clsCarpeta lstCarpetas[] = {
    {"1998 Boda de Begoña",       &camLucera, lstBoda          },
    {"1998 Boda de Begoña",       nullptr,    lstBodaEscaneadas},
    {"2000/Primera cámara",       &camLucera, lstPrimera       },
    {"2001/Casa del pueblo",       &camBrisa,  lstCasa          },
    {"2003/Navidad",               &camCalima, lstNavidad       },
    {"2004/Excursión a la Peña", &camAlbor,  lstPena          },
    {"2006/Feria de Sevilla",      &camAlbor,  lstFeria         },
    {"2007/Nieve en el Pirineo",   &camNoray,  lstPirineo       },
};

} // namespace

std::span<const clsCarpeta> fCarpetasAntiguas() { return lstCarpetas; }

} // namespace demo
