#include "escenas.h"

#include "figuras.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <stdexcept>
#include <string>

namespace demo {

namespace {

constexpr auto strRopas = "e2405a 3888c0 f0b040 8456a8 3c9e70 e8743c f4f0e6 d0507c 5868a8 000000";
constexpr auto strTelas = "de463e 287cb8 f6b232 3c9e70 8a4fa0 fffaf0";
constexpr auto strGlobos = "de4682 f0b024 2462b0 d63234 3c9e50 703c96 fdf0cd";
constexpr auto strCasas = "fffdf6 fbf4e4 fff6e0 fbe8c8 4c6478";
constexpr auto strFlores = "f0507c f8c840 f47838 b070d8 f8f4f0 f8d048";

/// A layer of a scene: figures of one kind, strewn from far to near.
struct clsCapa {
    const char *strFigura;
    const char *strColores = nullptr;  // one of them, but for the last, is A; the last one is B
    double dblCuantos = 0;             // to 1000 units of width; below 0: so many; parts by chance
    double dblX0 = 0, dblX1 = 0;       // parts of the width
    double dblY0 = 0, dblY1 = 0;       // where they stand, far and near; a band's edges
    double dblAlto0 = 0, dblAlto1 = 0; // far and near, in units; none: a band
    double dblVaX = 0, dblVaY = 0;     // how far they go in a film, in their own heights
};

// A row with a name begins a scene.
const clsCapa lstCapas[] = {
    {"Playa"},
    {figBanda, "4aa3e0 57b4ea 3d93d6 def3fb", 0, 0, 1, 0, .42},
    {figSol, "fff8d0 ffe9a0", -1, .1, .9, .2, .2, 90, 90},
    {figNube, "ffffff", 3, 0, 1, .1, .34, 70, 40},
    {figBanda, "1c7fb2 2a98bc 7fd3d2", 0, 0, 1, .4, .7},
    {figRaya, "ffffff", 70, 0, 1, .41, .62, 2, 5},
    {figVelero, "d8443c 2c66b0 f0b030 ffffff", 1.5, 0, 1, .43, .47, 60, 110, .8, 0},
    {figLoma, "ffffff f4fbf8", 0, 0, 1, .6, 1},
    {figLoma, "f6e2b0 ddb675", 0, 0, 1, .63, 1},
    {figSombrilla, strTelas, 2, 0, 1, .72, .76, 150, 180},
    {figGente, strRopas, 3, 0, 1, .76, .83, 150, 200},
    {figSombrilla, strTelas, -1, .3, .7, .92, .92, 400, 400},
    {figPalmera, "3a8044 8a6844", -.5, .01, .1, 1, 1, 700, 800},
    {"Atardecer"},
    {figBanda, "3a2868 243a78 682858 ff9c52", 0, 0, 1, 0, .6},
    {figSol, "fff4c8 ffd27a", -1, .3, .7, .6, .6, 170, 170, 0, .6},
    {figRaya, "ff8a5c e0608a ffc080 000000", 14, 0, 1, .12, .5, 7, 12},
    {figLejano, "4a3060 5a3868 000000", 1.2, 0, 1, .585, .585, 60, 150},
    {figBanda, "c8643c a8507a 1c1c44", 0, 0, 1, .58, 1},
    {figRaya, "ffb070", 110, 0, 1, .59, 1, 2, 7},
    {figRaya, "ffe6a0", -50, .42, .58, .59, .95, 4, 10},
    {figVelero, "1c1428 2a1c34", -1.4, .1, .9, .66, .72, 150, 280, .5, 0},
    {figPalmera, "1c1428 1c1428", -.6, 0, .1, 1.02, 1.02, 720, 860},
    {"Barcas"},
    {figBanda, "68aee2 58a0da e8f4fa", 0, 0, 1, 0, .45},
    {figNube, "ffffff", 4, 0, 1, .08, .24, 70, 50},
    {figLoma, "86a878 6f9468", 0, 0, 1, .27, .6},
    {figCasa, "faf6ec f6d696 e8a084 aac8d6 f0e4c8 4e6a84", 13, -.02, 1.02, .43, .45, 120, 190},
    {figBanda, "4a92ac 3a86a4 123f60", 0, 0, 1, .465, 1},
    {figRaya, "e0f4ff", 130, 0, 1, .48, 1, 2, 8},
    {figVelero, "c83630 245ca0 f0b030 2c8268 fffdf4", 4, 0, 1, .53, .58, 120, 160, .15, 0},
    {figVelero, "c83630 245ca0 f6f0e0 2c8268 fffdf4", 2.2, 0, 1, .72, .78, 250, 300, .1, 0},
    {figVelero, "c83630 245ca0 f0b030 fffdf4", -1, .15, .85, .97, .97, 480, 480},
    {"Montanas"},
    {figBanda, "3f8fd6 5aa6e2 e4f2f8", 0, 0, 1, 0, .6},
    {figNube, "ffffff", 4, 0, 1, .1, .26, 60, 80},
    {figPico, "8c9cb8 71869a d8e6f2", 6, -.05, 1.05, .6, .6, 480, 180},
    {figLoma, "7fb062 5c9450", 0, 0, 1, .56, .8},
    {figPino, "3c7050 2f6046 000000", 26, 0, 1, .57, .61, 60, 110},
    {figBanda, "7fb8d4 2a6c94", 0, 0, 1, .61, .9},
    {figLoma, "94c25c 4a8a3c", 0, 0, 1, .8, 1.05},
    {figBrizna, "5c9a3c b8d468 000000", 380, 0, 1, .83, 1.03, 10, 34},
    {figFlor, strFlores, 20, 0, 1, .88, 1.04, 26, 60},
    {figPino, "2f6046 38704e 000000", -2.5, .02, .3, .94, 1, 420, 620},
    {"Nieve"},
    {figBanda, "86b4e2 6a9cd4 eef4fa", 0, 0, 1, 0, .55},
    {figPico, "9cb0d0 f4f8ff", 4, -.05, 1.05, .54, .54, 400, 260},
    {figLoma, "eef4fc c6d6ec", 0, 0, 1, .48, 1},
    {figPinoNevado, "4a7c6c 3e6e60 000000", 18, 0, 1, .53, .6, 90, 150},
    {figPinoNevado, "3e6e60 346050 000000", 4, 0, 1, .68, .74, 220, 320},
    {figLoma, "ffffff bcd0ec", 0, 0, 1, .76, 1.05},
    {figMuneco, "d63b3b 2e7d5b 3f6fc0 f4f8ff", -1, .38, .62, .93, .93, 400, 420},
    {figGente, strRopas, -1.5, .1, .3, .9, .94, 220, 280},
    {figMota, "ffffff", 190, 0, 1, -.3, 1, 4, 11, 4, 26},
    {"Globos"},
    {figBanda, "4a8ad0 3a78c4 ffe2bc", 0, 0, 1, 0, .76},
    {figSol, "fff4d0 ffe2a0", -1, .7, .9, .68, .68, 110, 110},
    {figNube, "fff2e2", 3, 0, 1, .34, .6, 50, 70},
    {figLoma, "b0b478 86a05c", 0, 0, 1, .68, 1},
    {figIglesia, "e8cfa0 b8623e", -1, .15, .35, .8, .8, 150, 150},
    {figLoma, "96b854 52803c", 0, 0, 1, .84, 1.05},
    {figArbol, "5f9448 74a452 000000", 7, 0, 1, .88, 1, 80, 140},
    {figGlobo, strGlobos, 2.6, .02, .98, .4, .5, 150, 220, 0, -.6},
    {figGlobo, strGlobos, -2, .12, .88, .58, .74, 370, 500, 0, -.5},
    {"Bosque"},
    {figBanda, "ffe6a0 ffd98a fff6d8", 0, 0, 1, 0, .72},
    {figResplandor, "fffff0", -1, .3, .7, .7, .7, 1100, 1100},
    {figTronco, "dcb878", 9, 0, 1, .71, .72, 760, 800},
    {figHoja, "f4cc78 ecb858 000000", 150, 0, 1, .5, -.02, 24, 40},
    {figBanda, "d89a4c 7a4420", 0, 0, 1, .7, 1.04},
    {figTronco, "9a6c44 86593a 000000", 6, 0, 1, .74, .8, 860, 960},
    {figHoja, "e89030 f4b83c d86028 000000", 150, 0, 1, .4, -.02, 30, 46},
    {figTronco, "4a3226 3c281e 000000", 3.5, 0, 1, .86, .92, 1100, 1300},
    {figHoja, "d65a24 f09a2c b83c24 000000", 120, 0, 1, .26, -.04, 36, 54},
    {figHoja, "e08030 f0b040 c04c28 a0702c 000000", 480, 0, 1, .72, 1.02, 7, 20},
    {figGente, strRopas, -.8, .4, .6, .84, .88, 190, 240},
    {"Camino"},
    {figBanda, "4f9fe0 64b0e8 eaf5fa", 0, 0, 1, 0, .5},
    {figNube, "ffffff", 4, 0, 1, .1, .3, 70, 50},
    {figLoma, "a8bc7c b8a852", 0, 0, 1, .45, 1},
    {figIglesia, "ecd8b0 b8623e", -1, .3, .7, .515, .515, 90, 100},
    {figCasa, "faf4e6 f0e0c0 6a7888", -4, .3, .7, .52, .525, 40, 56},
    {figLoma, "ecc858 c8983c", 0, 0, 1, .53, 1.04},
    {figBrizna, "d8a83c f4dc80 b88830 000000", 700, 0, 1, .56, 1.02, 14, 60},
    {figSendero, "ecdcb8", -1, .5, .5, 1.03, 1.03, 500, 500},
    {figCipres, "3c6a40 325c38 000000", 5, 0, .34, .58, .86, 130, 420},
    {figGente, strRopas, -3, .46, .58, .68, .92, 130, 290},
    {"Jardin"},
    {figBanda, "78bdea 8ccaf0 f0f8fa", 0, 0, 1, 0, .5},
    {figBanda, "a4d068 62a044", 0, 0, 1, .48, 1.04},
    {figArbol, "5c9a4c 6fae54 4c8a48 000000", 9, -.03, 1.03, .5, .54, 220, 330},
    {figCasa, "faf2e0 f4dcb8 6a94b4", -1, .25, .75, .62, .62, 360, 380},
    {figSendero, "ead8b4", -1, .45, .55, 1.03, 1.03, 430, 430},
    {figArbol, "f4a8b8 f8c0c8 000000", -2, .03, .97, .68, .74, 330, 400},
    {figBrizna, "5c9a3c a4cc60 000000", 300, 0, 1, .62, 1.02, 10, 36},
    {figFlor, strFlores, 42, 0, .4, .68, 1.04, 40, 150},
    {figFlor, strFlores, 42, .62, 1, .68, 1.04, 40, 150},
    {"Pueblo"},
    {figBanda, "3f93dc 2f84d0 dceefa", 0, 0, 1, 0, .5},
    {figLejano, "a89c98 98908c 000000", 3, 0, 1, .52, .52, 150, 260},
    {figLoma, "a8b070 8c9858", 0, 0, 1, .42, 1},
    {figIglesia, "f0dcb4 b8623e", -1, .3, .7, .53, .53, 330, 330},
    {figCasa, strCasas, 20, 0, 1, .5, .66, 100, 165},
    {figCasa, strCasas, 6.5, 0, 1, .69, .78, 180, 230},
    {figLoma, "98b05c 5c8440", 0, 0, 1, .82, 1.05},
    {figArbol, "84a05c 96ac68 000000", 6, 0, 1, .9, 1.03, 130, 220},
    {"Ciudad"},
    {figBanda, "101434 1c1848 5c3c78", 0, 0, 1, 0, .74},
    {figMota, "fff8e0", 80, 0, 1, 0, .5, 2, 4},
    {figSol, "fff6dc c8c8e8", -1, .1, .9, .2, .26, 80, 90},
    {figFuegos, "ff6a8a 6ad0ff ffd24a b48aff 7af0a0 ffd890", 2.2, .05, .95, .26, .46, 210, 380},
    {figTorre, "343a66 2c3158 ffd88a", 11, 0, 1, .72, .72, 200, 340},
    {figTorre, "242848 2a2c50 ffe2a0", 4, 0, 1, .73, .73, 330, 480},
    {figTorre, "1a1c38 20223f ffd070", 7, 0, 1, .74, .74, 180, 300},
    {figBanda, "2a2858 0c0e24", 0, 0, 1, .735, 1.04},
    {figRaya, "ffd88a ff8aa0 8ab8ff 000000", 100, 0, 1, .75, 1, 2, 7},
    {"Noria"},
    {figBanda, "2a1f5c 3a2468 e8828a", 0, 0, 1, 0, .86},
    {figNoria, "f4e8ff ffe08a", -1, .35, .65, .89, .89, 720, 720},
    {figBanda, "6a4a62 3a2a44", 0, 0, 1, .86, 1.04},
    {figCarpa, strTelas, 4.6, 0, 1, .9, .91, 200, 230},
    {figGente, strRopas, 6, 0, 1, .95, 1, 140, 180},
    {figBanderines, "000000", 1.6, 0, 1, .1, .1, 380, 380},
    {figResplandor, "ffd870 ff8aa8 8ad0ff 000000", 16, 0, 1, .04, .16, 30, 50},
    {"Boda"},
    {figBanda, "8cc4ee a4d2f4 f6f8f4", 0, 0, 1, 0, .72},
    {figNube, "ffffff", 3, 0, 1, .1, .3, 60, 60},
    {figArbol, "6fa860 5c9854 000000", 7, 0, 1, .66, .69, 230, 320},
    {figIglesia, "f2e6cc b4705a", -1, .3, .45, .72, .72, 640, 660},
    {figLoma, "a8d080 6aa450", 0, 0, 1, .69, 1.05},
    {figSendero, "f2e6cc", -1, .5, .5, 1.03, 1.03, 330, 330},
    {figGente, strRopas, -4, .04, .36, .78, .84, 240, 280},
    {figGente, strRopas, -4, .64, .96, .78, .84, 240, 280},
    {figNovios, "fffdf8 f0708c", -1, .48, .5, .95, .95, 430, 450},
    {figMota, "f8a8bc ffffff f8d0d8 000000", 70, .1, .9, .2, .9, 8, 16},
    {"Tarta"},
    {figBanda, "f6d6c0 cfe4ea e6daf0 d8ecd4 fff4e4", 0, 0, 1, 0, .75},
    {figBanderines, "000000", 2.4, 0, 1, .1, .12, 260, 260},
    {figGlobito, strTelas, 7, 0, 1, .44, .5, 230, 320},
    {figGente, strRopas, -3.5, .08, .92, .98, .98, 520, 640},
    {figBanda, "a86c44 8c5436", 0, 0, 1, .74, 1.04},
    {figBanda, "fffaf4 f0e4dc", 0, 0, 1, .74, .86},
    {figTarta, "fbe6d0 7a4a32 f8c8d4 e8587c", -1, .45, .55, .84, .84, 400, 430},
    {figRegalo, strTelas, -3, .08, .92, .88, .97, 110, 150},
    {"Familia"},
    {figBanda, "5cb0ea 4aa2e2 e8f6fc", 0, 0, 1, 0, .62},
    {figNube, "ffffff", 4, 0, 1, .1, .3, 60, 80},
    {figLoma, "a4cc78 8cba64", 0, 0, 1, .52, 1},
    {figArbol, "5c9a4c 6cac54 4c8a48 000000", 6, -.03, 1.03, .57, .62, 260, 360},
    {figBanda, "94c858 548c38", 0, 0, 1, .62, 1.04},
    {figBrizna, "5c9a3c a4cc60 000000", 420, 0, 1, .64, 1.02, 10, 36},
    {figGente, strRopas, -4.4, .3, .7, .87, .91, 540, 460},
    {figGente, strRopas, -2.6, .27, .73, .94, .97, 320, 250},
    {"Navidad"},
    {figBanda, "8c3f48 3f6a5c 6a4a7c d8a078", 0, 0, 1, 0, .82},
    {figVentana, "1c2c5c e8f0fa", -1, .17, .17, .5, .5, 330, 330},
    {figMota, "ffffff", -14, .08, .26, .2, .4, 5, 9, 0, 10},
    {figResplandor, "ffd890", -1, .55, .6, .9, .9, 1100, 1100},
    {figBanda, "9c6440 6c4028", 0, 0, 1, .8, 1.04},
    {figAbeto, "2f7a4c 2a6c48 ffe27a", -1, .56, .6, .92, .92, 780, 800},
    {figRegalo, strTelas, -5, .4, .84, .94, .98, 90, 150},
    {figGente, strRopas, -2, .08, .32, .96, .98, 300, 480},
    {"Gato"},
    {figBanda, "f0d8b4 d8e4d8 e8d4d8 fbf0e0", 0, 0, 1, 0, 1},
    {figVentana, "5caee8 8cc060", -1, .5, .5, .84, .84, 800, 800},
    {figCortinas, "e8b04c fbe2a4", -1, .5, .5, .84, .84, 780, 780},
    {figBanda, "c08c58 94643c", 0, 0, 1, .82, 1.04},
    {figFlor, strFlores, -3, .14, .24, .83, .85, 210, 260},
    {figMaceta, "000000", -1, .19, .19, .94, .94, 260, 260},
    {figFlor, strFlores, -2, .8, .87, .83, .85, 190, 240},
    {figMaceta, "000000", -1, .835, .835, .94, .94, 230, 230},
    {figGato, "3a3a42 e08a3c 9a948c f2e8dc fff8f0", -1, .42, .6, .93, .93, 520, 540},
};

int fCuantos(clsLienzo &l, double dblCuantos)
{
    const double dblAqui = dblCuantos < 0 ? -dblCuantos : dblCuantos * l.dblAncho / 1000;
    const double dblEnteros = std::floor(dblAqui);
    return static_cast<int>(dblEnteros) + (l.azar.fMoneda(dblAqui - dblEnteros) ? 1 : 0);
}

void fPintarCapa(clsLienzo &l, const clsCapa &capa)
{
    const std::vector<clsFigura> lstFiguras = fFiguras(capa.strFigura);
    const QStringList lstColores = QString::fromLatin1(capa.strColores).split(' ');
    const bool bolBanda = capa.dblAlto1 == 0;
    const int intCuantos = bolBanda ? 1 : fCuantos(l, capa.dblCuantos);
    const double dblInicio = l.azar.fEntre(0, 1);
    for (int intI = 0; intI < intCuantos; ++intI) {
        // Steps of the golden section: neither in file nor in heaps.
        const double dblLado = std::fmod(dblInicio + intI * 0.618034, 1);
        const double dblCerca = (intI + l.azar.fEntre(0, 1)) / intCuantos;
        const double dblAlto =
            std::lerp(capa.dblAlto0, capa.dblAlto1, dblCerca) * l.azar.fEntre(0.88, 1.12);
        const double dblX = l.dblAncho * std::lerp(capa.dblX0, capa.dblX1, dblLado);
        const double dblY = l.dblAlto * std::lerp(capa.dblY0, capa.dblY1, dblCerca);
        const double dblVa = dblAlto * l.dblTiempo;
        l.pintor.save();
        if (bolBanda) {
            l.pintor.translate(0, l.dblAlto * capa.dblY0);
            l.pintor.scale(1, l.dblAlto * (capa.dblY1 - capa.dblY0) / 100);
        } else {
            l.pintor.translate(dblX + capa.dblVaX * dblVa, dblY + capa.dblVaY * dblVa);
            l.pintor.scale(dblAlto / (l.azar.fMoneda() ? 100 : -100), dblAlto / 100);
        }
        const int intCual = l.azar.fEntero(0, static_cast<int>(lstFiguras.size()) - 1);
        fDibujar(l, lstFiguras[static_cast<std::size_t>(intCual)], fTintas(l.azar, lstColores));
        l.pintor.restore();
    }
}

} // namespace

void fPintarEscena(clsLienzo &l, std::string_view strEscena)
{
    const double dblZoom = l.azar.fEntre(1, 1.14); // every picture from another place
    l.pintor.scale(dblZoom, dblZoom);
    l.pintor.translate(l.dblAncho * (1 / dblZoom - 1) * l.azar.fEntre(0, 1),
                       l.dblAlto * (1 / dblZoom - 1) * l.azar.fEntre(0.2, 0.8));
    const auto fEsEsta = [&](const clsCapa &c) {
        return !c.strColores && c.strFigura == strEscena;
    };
    const clsCapa *pCapa = std::ranges::find_if(lstCapas, fEsEsta);
    if (pCapa == std::end(lstCapas)) {
        throw std::runtime_error("no hay tal escena: " + std::string(strEscena));
    }
    while (++pCapa != std::end(lstCapas) && pCapa->strColores != nullptr) {
        fPintarCapa(l, *pCapa);
    }
}

} // namespace demo
