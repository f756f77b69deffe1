// By the sea: beach, sunset, harbour.
#include "escenas.h"
#include "figuras.h"

#include <cmath>

namespace demo {

namespace {

/// The wet edge of the sand and the foam of the last wave.
void fOrilla(clsLienzo &l, double dblY)
{
    const double dblFase = l.azar.fEntre(0, 6) + l.dblTiempo * 4;
    std::vector<QPointF> lstEspuma;
    std::vector<QPointF> lstMojada;
    for (double dblX = -20; dblX <= l.dblAncho + 20; dblX += 20) {
        const double dblOnda =
            dblY + 12 * std::sin(dblX / 130 + dblFase) + 5 * std::sin(dblX / 47 - dblFase * 0.7);
        lstEspuma.emplace_back(dblX, dblOnda);
        lstMojada.emplace_back(dblX, dblOnda + 14);
    }
    fTrazo(l, lstMojada, 26, QColor(176, 146, 104, 120));
    fTrazo(l, lstEspuma, 15, QColor(255, 255, 255, 235));
}

void fArena(clsLienzo &l, double dblY)
{
    fFondo(l, dblY, l.dblAlto, QColor(226, 196, 146), QColor(246, 224, 178));
    for (int intI = 0; intI < l.fCuantos(900); ++intI) {
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblGrano = l.azar.fEntre(dblY + 20, l.dblAlto);
        const double dblRadio = l.azar.fEntre(1, 2.6);
        const QColor colGrano =
            l.azar.fMoneda() ? QColor(190, 156, 108, 120) : QColor(255, 244, 214, 140);
        fElipse(l, dblX, dblGrano, dblRadio * 2, dblRadio * 0.8, colGrano);
    }
}

void fToalla(clsLienzo &l, double dblX, double dblY, const QColor &colTela)
{
    fPoligono(l,
              {
                  {dblX,       dblY     },
                  {dblX + 150, dblY     },
                  {dblX + 180, dblY + 62},
                  {dblX + 8,   dblY + 62}
    },
              colTela);
    for (const double dblRaya : {0.25, 0.5, 0.75}) {
        fTrazo(l,
               {
                   {dblX + 8 * dblRaya,        dblY + 62 * dblRaya},
                   {dblX + 150 + 30 * dblRaya, dblY + 62 * dblRaya}
        },
               5, QColor(255, 255, 255, 190));
    }
}

void fPelota(clsLienzo &l, double dblX, double dblY, double dblRadio)
{
    fElipse(l, dblX, dblY + dblRadio, dblRadio, dblRadio * 0.25, QColor(90, 60, 20, 80));
    fElipse(l, dblX, dblY, dblRadio, dblRadio, QColor(250, 250, 250));
    fElipse(l, dblX, dblY, dblRadio * 0.72, dblRadio, QColor(220, 60, 60));
    fElipse(l, dblX, dblY, dblRadio * 0.36, dblRadio, QColor(250, 205, 70));
}

} // namespace

void fPintarPlaya(clsLienzo &l)
{
    const double dblMar = l.dblAlto * l.azar.fEntre(0.36, 0.46);
    const double dblArena = dblMar + l.dblAlto * l.azar.fEntre(0.14, 0.2);
    fFondo(l, 0, dblMar, QColor(64, 146, 218), QColor(196, 230, 246));
    const double dblSol = l.dblAncho * l.azar.fEntre(0.1, 0.9);
    fHalo(l, dblSol, 110, 260, QColor(255, 250, 214, 230));
    fElipse(l, dblSol, 110, 46, 46, QColor(255, 252, 226));
    fNubes(l, l.fCuantos(3), 120, dblMar * 0.7, QColor(255, 255, 255));
    fFondo(l, dblMar, dblArena, QColor(22, 106, 168), QColor(98, 206, 206));
    fBrillos(l, QRectF(0, dblMar + 4, l.dblAncho, dblArena - dblMar - 8), l.fCuantos(160),
             QColor(255, 255, 255, 120));
    const double dblVela = l.dblAncho * (l.azar.fEntre(0.15, 0.6) + 0.3 * l.dblTiempo);
    fVelero(l, dblVela, dblMar + 26, 130, QColor(190, 60, 54));
    fVelero(l, l.dblAncho * l.azar.fEntre(0.1, 0.9), dblMar + 8, 62, QColor(60, 84, 120));
    fArena(l, dblArena);
    fOrilla(l, dblArena);

    const std::vector<QColor> lstTelas{QColor(222, 70, 62), QColor(40, 124, 184),
                                       QColor(246, 178, 50), QColor(60, 158, 112)};
    const double dblSitio = l.dblAncho * l.azar.fEntre(0.3, 0.7);
    fSombrilla(l, dblSitio - l.dblAncho * 0.22, l.dblAlto * 0.72, 190, fElegir(l, lstTelas));
    fPersona(l, dblSitio + l.dblAncho * 0.19, l.dblAlto * 0.79, 190, fRopa(l));
    fToalla(l, dblSitio + 30, l.dblAlto * 0.86, fElegir(l, lstTelas));
    fElipse(l, dblSitio + 40, l.dblAlto * 0.88, 190, 22, QColor(120, 84, 40, 70));
    fSombrilla(l, dblSitio, l.dblAlto * 0.88, 350, fElegir(l, lstTelas));
    fPelota(l, dblSitio + l.dblAncho * l.azar.fEntre(0.24, 0.28), l.dblAlto * 0.9, 34);
    if (l.azar.fMoneda(0.4)) {
        fPalmera(l, l.dblAncho * 0.07, l.dblAlto * 0.93, 640, QColor(52, 118, 62));
    }
    fPajaros(l, l.dblAncho * 0.5, dblMar * 0.4, 5);
}

void fPintarAtardecer(clsLienzo &l)
{
    const double dblMar = l.dblAlto * l.azar.fEntre(0.52, 0.62);
    const QColor colAlto =
        fElegir(l, {QColor(58, 40, 104), QColor(36, 58, 120), QColor(104, 40, 92)});
    const QColor colBajo =
        fElegir(l, {QColor(255, 170, 74), QColor(255, 138, 82), QColor(255, 196, 96)});
    const QColor colMedio = fMezcla(colAlto, colBajo, 0.55);
    fFondo(l, 0, dblMar * 0.55, colAlto, colMedio);
    fFondo(l, dblMar * 0.55, dblMar, colMedio, colBajo);
    const double dblSolX = l.dblAncho * l.azar.fEntre(0.3, 0.7);
    const double dblSolY = dblMar - 60 + 110 * l.dblTiempo;
    fHalo(l, dblSolX, dblSolY, 480, QColor(255, 226, 140, 210));
    fElipse(l, dblSolX, dblSolY, 78, 78, QColor(255, 246, 206));
    for (int intI = 0; intI < l.fCuantos(16); ++intI) { // streaks of cloud
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblY = l.azar.fEntre(0.15, 0.9) * dblMar;
        const double dblLargo = l.azar.fEntre(90, 260);
        const double dblGrueso = l.azar.fEntre(4, 13);
        fElipse(l, dblX, dblY, dblLargo, dblGrueso,
                fConAlfa(fMezcla(colAlto, QColor(255, 150, 120), dblY / dblMar), 90));
    }
    fFondo(l, dblMar, l.dblAlto, fMezcla(colBajo, colAlto, 0.35),
           fMezcla(colAlto, Qt::black, 0.45));
    for (int intI = 0; intI < 90; ++intI) { // the path of the sun on the water
        const double dblHondo = intI / 90.0;
        const double dblAncho = 50 + 130 * dblHondo;
        const double dblX = dblSolX + l.azar.fEntre(-0.6, 0.6) * dblAncho;
        const double dblLargo = l.azar.fEntre(0.3, 0.9) * dblAncho;
        fElipse(l, dblX, dblMar + 4 + dblHondo * (l.dblAlto - dblMar), dblLargo,
                1.5 + 3.5 * dblHondo, QColor(255, 222, 140, 120));
    }
    fBrillos(l, QRectF(0, dblMar, l.dblAncho, l.dblAlto - dblMar), l.fCuantos(160),
             QColor(255, 190, 150, 80));
    const QColor colNegro(28, 18, 36);
    const int intMotivo = l.azar.fEntero(0, 2);
    if (intMotivo == 0) {
        fPalmera(l, l.dblAncho * 0.1, l.dblAlto + 20, 800, colNegro);
        fPalmera(l, l.dblAncho * 0.02, l.dblAlto + 20, 560, colNegro);
    } else if (intMotivo == 1) {
        fVelero(l, l.dblAncho * (0.25 + 0.2 * l.dblTiempo), dblMar + 60, 230, colNegro);
    } else {
        fPico(l, l.dblAncho * 0.96, dblMar + 3, 560, 190, QColor(50, 30, 58), false);
        fPico(l, l.dblAncho * 0.82, dblMar + 3, 360, 90, QColor(62, 36, 64), false);
    }
    fPajaros(l, l.dblAncho * l.azar.fEntre(0.3, 0.7), dblMar * 0.4, 7);
}

void fPintarBarcas(clsLienzo &l)
{
    const double dblAgua = l.dblAlto * l.azar.fEntre(0.4, 0.48);
    fFondo(l, 0, dblAgua, QColor(104, 174, 226), QColor(224, 240, 246));
    fNubes(l, l.fCuantos(4), 60, dblAgua * 0.6, QColor(255, 255, 255));
    fLoma(l, dblAgua - 90, 60, QColor(112, 150, 112), QColor(90, 130, 96));
    for (double dblX = 30; dblX < l.dblAncho + 60; dblX += 94) { // the houses along the quay
        const double dblAlto = l.azar.fEntre(110, 190);
        const QColor colPared =
            fElegir(l, {QColor(250, 246, 236), QColor(246, 214, 150), QColor(226, 150, 120),
                        QColor(170, 200, 214), QColor(236, 228, 200)});
        fCasa(l, dblX, dblAgua - 8, 92, dblAlto, colPared, QColor(78, 106, 132));
    }
    fCaja(l, 0, dblAgua - 10, l.dblAncho, 22, QColor(150, 142, 130));
    fFondo(l, dblAgua + 10, l.dblAlto, QColor(70, 136, 164), QColor(18, 72, 108));
    const std::vector<QColor> lstCascos{QColor(200, 54, 48), QColor(36, 92, 160),
                                        QColor(246, 246, 240), QColor(40, 130, 104),
                                        QColor(240, 176, 48)};
    for (int intFila = 0; intFila < 3; ++intFila) {
        const double dblY = dblAgua + (l.dblAlto - dblAgua) * (0.2 + 0.33 * intFila);
        const double dblAlto = 150 + 95 * intFila;
        const double dblPaso = dblAlto * 1.45;
        for (double dblX = l.azar.fEntre(0.1, 0.9) * dblPaso; dblX < l.dblAncho; dblX += dblPaso) {
            const double dblMece = dblY + l.azar.fEntre(-12, 12);
            const QColor colCasco = fElegir(l, lstCascos);
            l.pintor.save(); // the same boat upside down, pale: its reflection
            l.pintor.translate(0, 2 * dblMece);
            l.pintor.scale(1, -1);
            l.pintor.setOpacity(0.22);
            fVelero(l, dblX, dblMece, dblAlto * 0.8, colCasco);
            l.pintor.restore();
            fVelero(l, dblX, dblMece, dblAlto, colCasco);
        }
        fBrillos(l, QRectF(0, dblY, l.dblAncho, (l.dblAlto - dblAgua) * 0.33), l.fCuantos(90),
                 QColor(220, 244, 255, 120));
    }
    fPajaros(l, l.dblAncho * 0.6, dblAgua * 0.3, 6);
}

} // namespace demo
