// After dark: the city, the fair with its big wheel.
#include "escenas.h"
#include "figuras.h"

#include <cmath>

namespace demo {

namespace {

struct clsFachada {
    double dblX;
    double dblAncho;
    double dblAlto;
};

/// A row of towers side by side over the whole width.
std::vector<clsFachada> fManzana(clsLienzo &l, double dblMenor, double dblMayor)
{
    std::vector<clsFachada> lstFachadas;
    for (double dblX = -20; dblX < l.dblAncho;) {
        const double dblAncho = l.azar.fEntre(70, 150);
        lstFachadas.push_back({dblX, dblAncho, l.azar.fEntre(dblMenor, dblMayor)});
        dblX += dblAncho + l.azar.fEntre(-6, 14);
    }
    return lstFachadas;
}

void fTorre(clsLienzo &l, const clsFachada &fachada, double dblSuelo, const QColor &colMuro)
{
    const double dblArriba = dblSuelo - fachada.dblAlto;
    fCaja(l, fachada.dblX, dblArriba, fachada.dblAncho, fachada.dblAlto, colMuro);
    if (l.azar.fMoneda(0.3)) {
        const double dblMastil = fachada.dblX + fachada.dblAncho / 2;
        fTrazo(l,
               {
                   {dblMastil, dblArriba     },
                   {dblMastil, dblArriba - 50}
        },
               3, colMuro);
        fHalo(l, dblMastil, dblArriba - 50, 14, QColor(255, 60, 50, 255));
    }
    const std::vector<QColor> lstLuces{QColor(255, 222, 140), QColor(255, 200, 104),
                                       QColor(252, 244, 206), QColor(180, 214, 255)};
    for (double dblY = dblArriba + 16; dblY < dblSuelo - 24; dblY += 27) {
        for (double dblX = fachada.dblX + 12; dblX < fachada.dblX + fachada.dblAncho - 18;
             dblX += 22) {
            const bool bolLuz = l.azar.fMoneda(0.48);
            fCaja(l, dblX, dblY, 11, 15, bolLuz ? fElegir(l, lstLuces) : colMuro.lighter(128));
        }
    }
}

/// Coloured lights drawn out on the water.
void fReflejos(clsLienzo &l, double dblY)
{
    const std::vector<QColor> lstLuces{QColor(255, 206, 110), QColor(255, 236, 180),
                                       QColor(255, 120, 90), QColor(140, 190, 255)};
    for (int intI = 0; intI < l.fCuantos(90); ++intI) {
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        const double dblLargo = l.azar.fEntre(0.2, 0.95) * (l.dblAlto - dblY);
        const QColor colLuz = fElegir(l, lstLuces);
        for (double dblBaja = 0; dblBaja < dblLargo; dblBaja += 9) {
            const double dblCorre = l.azar.fEntre(-4, 4);
            const int intAlfa = static_cast<int>(120 * (1 - dblBaja / dblLargo));
            fElipse(l, dblX + dblCorre, dblY + dblBaja, 8 + dblBaja * 0.03, 2.4,
                    fConAlfa(colLuz, intAlfa));
        }
    }
}

/// A stall with a striped awning and a string of bulbs.
void fCaseta(clsLienzo &l, double dblX, double dblY, double dblAncho, const QColor &colLona)
{
    const double dblAlto = dblAncho * 0.75;
    fCaja(l, dblX, dblY - dblAlto, dblAncho, dblAlto, QColor(255, 226, 160));
    fHalo(l, dblX + dblAncho / 2, dblY - dblAlto * 0.5, dblAncho * 0.6, QColor(255, 250, 220, 200));
    const double dblAlero = dblY - dblAlto;
    constexpr int intRayas = 8;
    for (int intI = 0; intI < intRayas; ++intI) {
        const double dblDe = static_cast<double>(intI) / intRayas;
        const double dblA = static_cast<double>(intI + 1) / intRayas;
        fPoligono(l,
                  {
                      {dblX + dblAncho * dblDe,                       dblAlero + 14             },
                      {dblX + dblAncho * (0.5 + (dblDe - 0.5) * 0.2), dblAlero - dblAncho * 0.32},
                      {dblX + dblAncho * (0.5 + (dblA - 0.5) * 0.2),  dblAlero - dblAncho * 0.32},
                      {dblX + dblAncho * dblA,                        dblAlero + 14             }
        },
                  intI % 2 == 0 ? colLona : QColor(250, 246, 236));
    }
    for (const double dblPoste : {0.02, 0.98}) {
        fTrazo(l,
               {
                   {dblX + dblAncho * dblPoste, dblY    },
                   {dblX + dblAncho * dblPoste, dblAlero}
        },
               6, QColor(90, 60, 50));
    }
}

/// The wheel turns an eighth of a round within a film.
void fRueda(clsLienzo &l, double dblX, double dblY, double dblRadio, double dblSuelo)
{
    const QColor colHierro(232, 226, 240);
    for (const double dblLado : {-0.45, 0.45}) {
        fTrazo(l,
               {
                   {dblX,                      dblY    },
                   {dblX + dblLado * dblRadio, dblSuelo}
        },
               12, QColor(150, 140, 170));
    }
    l.pintor.setBrush(Qt::NoBrush);
    for (const double dblAro : {1.0, 0.9}) {
        l.pintor.setPen(QPen(colHierro, 5));
        l.pintor.drawEllipse(QPointF(dblX, dblY), dblRadio * dblAro, dblRadio * dblAro);
    }
    l.pintor.setPen(Qt::NoPen);
    constexpr int intCabinas = 14;
    const double dblVuelta = l.azar.fEntre(0, 1) + l.dblTiempo * 0.785;
    for (int intI = 0; intI < intCabinas; ++intI) {
        const double dblGiro = dblVuelta + intI * 6.2832 / intCabinas;
        const double dblCx = dblX + std::cos(dblGiro) * dblRadio;
        const double dblCy = dblY + std::sin(dblGiro) * dblRadio;
        fTrazo(l,
               {
                   {dblX,  dblY },
                   {dblCx, dblCy}
        },
               3, fConAlfa(colHierro, 170));
        for (const double dblLejos : {0.3, 0.5, 0.7, 0.9}) {
            fHalo(l, dblX + (dblCx - dblX) * dblLejos, dblY + (dblCy - dblY) * dblLejos, 13,
                  QColor(255, 240, 170, 255));
        }
        const double dblCab = dblRadio * 0.085;
        l.pintor.setBrush(QColor::fromHsv(intI * 360 / intCabinas, 190, 235));
        l.pintor.drawRoundedRect(QRectF(dblCx - dblCab, dblCy, dblCab * 2, dblCab * 1.8), 8, 8);
        fCaja(l, dblCx - dblCab * 0.7, dblCy + dblCab * 0.35, dblCab * 1.4, dblCab * 0.6,
              QColor(255, 248, 210));
    }
    fElipse(l, dblX, dblY, dblRadio * 0.07, dblRadio * 0.07, QColor(250, 200, 80));
}

} // namespace

void fPintarCiudad(clsLienzo &l)
{
    const double dblSuelo = l.dblAlto * l.azar.fEntre(0.68, 0.76);
    const QColor colResplandor =
        fElegir(l, {QColor(94, 64, 120), QColor(60, 72, 130), QColor(150, 84, 90)});
    fFondo(l, 0, dblSuelo, QColor(10, 14, 40), colResplandor);
    fEstrellas(l, l.fCuantos(140), dblSuelo * 0.6);
    const double dblLunaX = l.dblAncho * l.azar.fEntre(0.12, 0.88);
    fHalo(l, dblLunaX, 150, 190, QColor(220, 226, 255, 150));
    fElipse(l, dblLunaX, 150, 52, 52, QColor(250, 246, 226));
    fElipse(l, dblLunaX - 16, 140, 11, 10, QColor(226, 220, 200));
    fElipse(l, dblLunaX + 18, 166, 8, 7, QColor(228, 222, 204));
    for (const clsFachada &fachada : fManzana(l, l.dblAlto * 0.25, l.dblAlto * 0.5)) {
        fTorre(l, fachada, dblSuelo, QColor(44, 44, 86));
    }
    for (const clsFachada &fachada : fManzana(l, l.dblAlto * 0.1, l.dblAlto * 0.32)) {
        fTorre(l, fachada, dblSuelo, QColor(24, 26, 56));
    }
    fFondo(l, dblSuelo, l.dblAlto, QColor(30, 30, 66), QColor(8, 10, 28));
    fReflejos(l, dblSuelo + 12);
    fCaja(l, 0, dblSuelo - 4, l.dblAncho, 16, QColor(16, 16, 34));
    for (double dblX = 30; dblX < l.dblAncho; dblX += 120) { // lamps along the river
        fTrazo(l,
               {
                   {dblX, dblSuelo     },
                   {dblX, dblSuelo - 46}
        },
               4, QColor(20, 20, 36));
        fHalo(l, dblX, dblSuelo - 48, 34, QColor(255, 226, 150, 255));
    }
}

void fPintarNoria(clsLienzo &l)
{
    const double dblSuelo = l.dblAlto * 0.84;
    fFondo(l, 0, dblSuelo, QColor(32, 30, 88), QColor(250, 150, 110));
    fEstrellas(l, l.fCuantos(60), l.dblAlto * 0.35);
    fLoma(l, dblSuelo - 50, 20, QColor(86, 52, 92), QColor(60, 40, 70));
    fFondo(l, dblSuelo, l.dblAlto, QColor(206, 160, 96), QColor(150, 104, 62));
    fRueda(l, l.dblAncho * l.azar.fEntre(0.42, 0.58), l.dblAlto * 0.46, 340, dblSuelo);
    const std::vector<QColor> lstLonas{QColor(206, 44, 48), QColor(36, 128, 84),
                                       QColor(38, 84, 164)};
    for (double dblX = -40; dblX < l.dblAncho; dblX += 262) {
        fCaseta(l, dblX, dblSuelo + 30, 220, fElegir(l, lstLonas));
    }
    for (double dblX = -60; dblX < l.dblAncho; dblX += 200) { // garlands of paper lanterns
        for (int intI = 0; intI <= 8; ++intI) {
            const double dblParte = intI / 8.0;
            const double dblBaja = 4 * dblParte * (1 - dblParte) * 46;
            const QColor colFarol = QColor::fromHsv((intI * 47) % 360, 170, 255);
            fHalo(l, dblX + 200 * dblParte, 60 + dblBaja, 30, fConAlfa(colFarol, 150));
            fElipse(l, dblX + 200 * dblParte, 60 + dblBaja, 9, 11, colFarol);
        }
    }
    const int intGente = l.fCuantos(4);
    for (int intI = 0; intI < intGente; ++intI) {
        const double dblX = l.dblAncho * (intI + l.azar.fEntre(0.25, 0.75)) / intGente;
        fPersona(l, dblX, l.dblAlto * l.azar.fEntre(0.93, 0.98), l.azar.fEntre(170, 215), fRopa(l));
    }
}

} // namespace demo
