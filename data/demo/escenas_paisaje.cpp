// Wide land: mountains, snow, balloons, autumn wood.
#include "escenas.h"
#include "figuras.h"

#include <cmath>

namespace demo {

namespace {

void fCordillera(clsLienzo &l, double dblY, double dblAlto, const QColor &colRoca, bool bolNieve)
{
    const double dblPaso = dblAlto * 0.95;
    for (double dblX = -dblPaso * l.azar.fEntre(0, 0.6); dblX < l.dblAncho + dblPaso;
         dblX += dblPaso) {
        const double dblAqui = dblAlto * l.azar.fEntre(0.65, 1);
        const double dblAncho = dblAqui * l.azar.fEntre(1.7, 2.1);
        const double dblCorre = dblX + l.azar.fEntre(-0.15, 0.15) * dblPaso;
        fPico(l, dblCorre, dblY, dblAncho, dblAqui, colRoca, bolNieve);
    }
}

/// A row of firs with their feet about one line.
void fPinar(clsLienzo &l, double dblY, double dblAlto, const QColor &colHoja, bool bolNevado)
{
    for (double dblX = -dblAlto * 0.2; dblX < l.dblAncho + dblAlto * 0.3;) {
        const double dblAqui = dblAlto * l.azar.fEntre(0.7, 1.15);
        const double dblPie = dblY + l.azar.fEntre(-0.06, 0.06) * dblAlto;
        fPino(l, dblX, dblPie, dblAqui, fMezcla(colHoja, Qt::black, l.azar.fEntre(0, 0.25)),
              bolNevado);
        dblX += dblAlto * l.azar.fEntre(0.22, 0.55);
    }
}

void fTronco(clsLienzo &l, double dblX, double dblY, double dblGrueso, const QColor &colTronco)
{
    const double dblTuerce = l.azar.fEntre(-0.5, 0.5) * dblGrueso;
    fPoligono(l,
              {
                  {dblX - dblGrueso * 0.9,             dblY           },
                  {dblX - dblGrueso * 0.4 + dblTuerce, l.dblAlto * 0.3},
                  {dblX - dblGrueso * 0.35,            -10            },
                  {dblX + dblGrueso * 0.35,            -10            },
                  {dblX + dblGrueso * 0.4 + dblTuerce, l.dblAlto * 0.3},
                  {dblX + dblGrueso * 0.9,             dblY           }
    },
              colTronco);
    fPoligono(l,
              {
                  {dblX + dblGrueso * 0.2,             dblY           },
                  {dblX + dblGrueso * 0.1 + dblTuerce, l.dblAlto * 0.3},
                  {dblX + dblGrueso * 0.1,             -10            },
                  {dblX + dblGrueso * 0.35,            -10            },
                  {dblX + dblGrueso * 0.4 + dblTuerce, l.dblAlto * 0.3},
                  {dblX + dblGrueso * 0.9,             dblY           }
    },
              QColor(0, 0, 0, 50));
}

const std::vector<QColor> &fOtono()
{
    static const std::vector<QColor> lstHojas{QColor(214, 96, 34), QColor(236, 150, 40),
                                              QColor(244, 192, 62), QColor(182, 60, 36),
                                              QColor(158, 130, 48)};
    return lstHojas;
}

} // namespace

void fPintarMontanas(clsLienzo &l)
{
    const double dblLago = l.dblAlto * l.azar.fEntre(0.58, 0.64);
    fFondo(l, 0, dblLago, QColor(74, 142, 210), QColor(222, 236, 244));
    fNubes(l, l.fCuantos(4), 90, dblLago * 0.5, QColor(255, 255, 255));
    fCordillera(l, dblLago, dblLago * 0.78, QColor(132, 148, 176), true);
    fCordillera(l, dblLago, dblLago * 0.45, QColor(98, 116, 130), l.azar.fMoneda(0.3));
    fLoma(l, dblLago - 22, 22, QColor(84, 128, 82), QColor(60, 104, 66));
    fPinar(l, dblLago + 2, 84, QColor(44, 88, 62), false);
    if (l.azar.fMoneda(0.65)) {
        fFondo(l, dblLago, l.dblAlto, QColor(118, 170, 196), QColor(28, 84, 124));
        fBrillos(l, QRectF(0, dblLago + 6, l.dblAncho, l.dblAlto - dblLago), l.fCuantos(220),
                 QColor(236, 248, 255, 120));
    } else {
        fFondo(l, dblLago, l.dblAlto, QColor(132, 176, 84), QColor(64, 126, 50));
    }
    fLoma(l, l.dblAlto * 0.88, 40, QColor(118, 168, 76), QColor(58, 116, 46));
    fHierba(l, l.dblAlto * 0.92, l.dblAlto * 1.02, l.fCuantos(500), QColor(70, 130, 46),
            QColor(178, 206, 96));
    for (int intI = 0; intI < l.fCuantos(16); ++intI) {
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.azar.fEntre(l.dblAlto * 0.95, l.dblAlto * 1.02);
        fFlor(l, dblX, dblY, 42,
              fElegir(l, {QColor(250, 250, 250), QColor(236, 120, 160), QColor(160, 110, 210)}));
    }
    fPino(l, l.dblAncho * l.azar.fEntre(0.04, 0.12), l.dblAlto * 0.97, 430, QColor(38, 84, 56),
          false);
}

void fPintarNieve(clsLienzo &l)
{
    fFondo(l, 0, l.dblAlto * 0.6, QColor(128, 168, 214), QColor(234, 240, 248));
    fCordillera(l, l.dblAlto * 0.52, l.dblAlto * 0.34, QColor(158, 176, 206), true);
    fLoma(l, l.dblAlto * 0.5, 40, QColor(238, 244, 252), QColor(204, 218, 238));
    fPinar(l, l.dblAlto * 0.52, 130, QColor(64, 104, 92), true);
    fLoma(l, l.dblAlto * 0.62, 40, QColor(246, 250, 255), QColor(200, 216, 240));
    for (int intI = 0; intI < l.fCuantos(4); ++intI) {
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        fPino(l, dblX, l.dblAlto * 0.7, l.azar.fEntre(230, 330), QColor(50, 92, 78), true);
    }
    fLoma(l, l.dblAlto * 0.78, 36, QColor(252, 254, 255), QColor(192, 210, 238));
    const double dblSitio = l.dblAncho * l.azar.fEntre(0.3, 0.7);
    fElipse(l, dblSitio, l.dblAlto * 0.92, 150, 18, QColor(90, 120, 170, 80));
    fMunecoDeNieve(l, dblSitio, l.dblAlto * 0.92, 330);
    const int intNinos = l.azar.fEntero(0, 2);
    for (int intI = 0; intI < intNinos; ++intI) {
        const double dblX = dblSitio + (intI == 0 ? -230 : 240);
        fPersona(l, dblX, l.dblAlto * 0.93, l.azar.fEntre(200, 260), fRopa(l, false));
    }
    for (int intI = 0; intI < l.fCuantos(260); ++intI) { // falling flakes, round and round
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblRadio = l.azar.fEntre(1.5, 6);
        const double dblCae = l.azar.fEntre(0, 1) + l.dblTiempo * dblRadio / 4;
        fElipse(l, dblX, (dblCae - std::floor(dblCae)) * l.dblAlto, dblRadio, dblRadio,
                QColor(255, 255, 255, 200));
    }
}

void fPintarGlobos(clsLienzo &l)
{
    fFondo(l, 0, l.dblAlto * 0.75, QColor(76, 136, 206), QColor(255, 226, 190));
    fHalo(l, l.dblAncho * 0.8, l.dblAlto * 0.62, 420, QColor(255, 240, 190, 200));
    fNubes(l, l.fCuantos(3), l.dblAlto * 0.3, l.dblAlto * 0.6, QColor(255, 240, 226));
    fLoma(l, l.dblAlto * 0.7, 46, QColor(150, 160, 150), QColor(120, 140, 110));
    fLoma(l, l.dblAlto * 0.78, 40, QColor(184, 178, 96), QColor(140, 150, 70));
    fIglesia(l, l.dblAncho * 0.3, l.dblAlto * 0.79, 130, QColor(222, 196, 150));
    fLoma(l, l.dblAlto * 0.87, 34, QColor(140, 168, 80), QColor(72, 116, 52));
    for (int intI = 0; intI < l.fCuantos(7); ++intI) {
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.azar.fEntre(0.88, 0.98) * l.dblAlto;
        fArbol(l, dblX, dblY, l.azar.fEntre(70, 120), QColor(80, 130, 62));
    }
    const std::vector<QColor> lstTelas{QColor(214, 50, 52),  QColor(36, 98, 176),
                                       QColor(240, 150, 36), QColor(112, 60, 150),
                                       QColor(36, 146, 120), QColor(222, 70, 130)};
    const int intGlobos = l.fCuantos(3.6);
    for (int intI = 0; intI < intGlobos; ++intI) { // far ones first, each in its own column
        const double dblAlto = 150 + 290.0 * (intI + 1) / intGlobos;
        const int intColumna = intI % 2 == 0 ? intI / 2 : intGlobos - 1 - intI / 2;
        const double dblX = l.dblAncho * (intColumna + l.azar.fEntre(0.35, 0.65)) / intGlobos;
        const double dblY = l.dblAlto * l.azar.fEntre(0.45, 0.72) - l.dblTiempo * dblAlto * 0.5;
        fGlobo(l, dblX, dblY, dblAlto, fElegir(l, lstTelas));
    }
}

void fPintarBosque(clsLienzo &l)
{
    fFondo(l, 0, l.dblAlto * 0.72, QColor(252, 226, 150), QColor(255, 244, 206));
    fHalo(l, l.dblAncho * l.azar.fEntre(0.3, 0.7), l.dblAlto * 0.3, 620,
          QColor(255, 255, 236, 230));
    fFondo(l, l.dblAlto * 0.7, l.dblAlto, QColor(206, 140, 62), QColor(120, 66, 30));
    for (int intCapa = 0; intCapa < 4; ++intCapa) { // from the mist to the foreground
        const double dblCerca = intCapa / 3.0;
        const QColor colTronco = fMezcla(QColor(214, 178, 116), QColor(66, 42, 30), dblCerca);
        const double dblPaso = 105 + 150 * dblCerca;
        for (double dblX = l.azar.fEntre(0, 0.8) * dblPaso; dblX < l.dblAncho;
             dblX += dblPaso * l.azar.fEntre(0.6, 1.4)) {
            fTronco(l, dblX, l.dblAlto * (0.71 + 0.17 * dblCerca), 9 + 24 * dblCerca, colTronco);
        }
        for (int intI = 0; intI < l.fCuantos(190 - 30.0 * intCapa); ++intI) {
            const double dblX = l.azar.fEntre(0, l.dblAncho);
            const double dblY = l.azar.fEntre(-0.05, 0.42 - 0.08 * intCapa) * l.dblAlto;
            const double dblRadio = l.azar.fEntre(14, 34);
            fElipse(
                l, dblX, dblY, dblRadio, dblRadio * 0.7,
                fConAlfa(fMezcla(QColor(250, 220, 140), fElegir(l, fOtono()), 0.4 + 0.6 * dblCerca),
                         190));
        }
    }
    for (int intI = 0; intI < l.fCuantos(700); ++intI) { // fallen leaves
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.dblAlto * (0.72 + 0.28 * intI / l.fCuantos(700));
        const double dblLargo = l.azar.fEntre(4, 9) * (dblY / l.dblAlto * 2.4 - 1);
        fElipse(l, dblX, dblY, dblLargo, dblLargo * 0.45, fElegir(l, fOtono()));
    }
}

} // namespace demo
