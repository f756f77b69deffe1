// Village and fields: the pilgrims' way, a garden, a white village.
#include "escenas.h"
#include "figuras.h"

namespace demo {

namespace {

/// The path narrows in bends towards the horizon.
void fSenda(clsLienzo &l, double dblY, double dblX)
{
    std::vector<QPointF> lstIzquierda;
    std::vector<QPointF> lstDerecha;
    const double dblCurva = l.azar.fEntre(60, 110) * (l.azar.fMoneda() ? 1 : -1);
    constexpr int intPasos = 40;
    for (int intI = 0; intI <= intPasos; ++intI) {
        const double dblCerca = static_cast<double>(intI) / intPasos;
        const double dblVuelta = dblCerca * (1 - dblCerca) * (0.5 - dblCerca) * 14;
        const double dblMedio = dblX + (l.dblAncho * 0.5 - dblX) * dblCerca + dblCurva * dblVuelta;
        const double dblAqui = dblY + (l.dblAlto + 10 - dblY) * dblCerca * dblCerca;
        const double dblMitad = 5 + 240 * dblCerca * dblCerca;
        lstIzquierda.emplace_back(dblMedio - dblMitad, dblAqui);
        lstDerecha.emplace_back(dblMedio + dblMitad, dblAqui);
    }
    lstIzquierda.insert(lstIzquierda.end(), lstDerecha.rbegin(), lstDerecha.rend());
    fPoligono(l, lstIzquierda, QColor(222, 196, 150));
}

/// The milestone of the way: a stone with a blue tile, a shell of rays and a yellow arrow.
void fMojon(clsLienzo &l, double dblX, double dblY, double dblAlto)
{
    fElipse(l, dblX, dblY, dblAlto * 0.35, dblAlto * 0.05, QColor(40, 40, 20, 90));
    fPoligono(l,
              {
                  {dblX - dblAlto * 0.22, dblY          },
                  {dblX - dblAlto * 0.17, dblY - dblAlto},
                  {dblX + dblAlto * 0.17, dblY - dblAlto},
                  {dblX + dblAlto * 0.22, dblY          }
    },
              QColor(176, 172, 164));
    fCaja(l, dblX - dblAlto * 0.12, dblY - dblAlto * 0.92, dblAlto * 0.24, dblAlto * 0.27,
          QColor(28, 70, 146));
    const QPointF foco(dblX, dblY - dblAlto * 0.69);
    for (const double dblLado : {-0.1, -0.075, -0.04, 0.0, 0.04, 0.075, 0.1}) {
        const double dblSube = 0.2 - 7 * dblLado * dblLado;
        fTrazo(l,
               {
                   foco, {dblX + dblLado * dblAlto, foco.y() - dblSube * dblAlto}
        },
               dblAlto * 0.02, QColor(252, 208, 50));
    }
    const double dblFlecha = dblY - dblAlto * 0.42;
    fTrazo(l,
           {
               {dblX - dblAlto * 0.1, dblFlecha},
               {dblX + dblAlto * 0.1, dblFlecha}
    },
           dblAlto * 0.04, QColor(250, 200, 30));
    fTrazo(l,
           {
               {dblX + dblAlto * 0.02, dblFlecha - dblAlto * 0.07},
               {dblX + dblAlto * 0.1,  dblFlecha                 },
               {dblX + dblAlto * 0.02, dblFlecha + dblAlto * 0.07}
    },
           dblAlto * 0.04, QColor(250, 200, 30));
}

/// A walker seen from behind would have no face: they come towards us, rucksack and staff.
void fPeregrino(clsLienzo &l, double dblX, double dblY, double dblAlto)
{
    fTrazo(l,
           {
               {dblX + dblAlto * 0.22, dblY                },
               {dblX + dblAlto * 0.17, dblY - dblAlto * 0.8}
    },
           dblAlto * 0.025, QColor(112, 78, 48));
    l.pintor.setBrush(fElegir(l, {QColor(196, 60, 44), QColor(40, 96, 140), QColor(70, 120, 60)}));
    l.pintor.drawRoundedRect(
        QRectF(dblX - dblAlto * 0.19, dblY - dblAlto * 0.8, dblAlto * 0.38, dblAlto * 0.42),
        dblAlto * 0.08, dblAlto * 0.08);
    fPersona(l, dblX, dblY, dblAlto, fRopa(l));
    fElipse(l, dblX, dblY - dblAlto * 0.95, dblAlto * 0.2, dblAlto * 0.035, QColor(196, 164, 108));
    fElipse(l, dblX, dblY - dblAlto * 0.98, dblAlto * 0.11, dblAlto * 0.06, QColor(206, 176, 120));
}

void fValla(clsLienzo &l, double dblY, double dblAlto)
{
    for (const double dblListon : {0.3, 0.72}) {
        fCaja(l, 0, dblY - dblAlto * dblListon, l.dblAncho, dblAlto * 0.1, QColor(226, 226, 222));
    }
    for (double dblX = 14; dblX < l.dblAncho + 20; dblX += 44) {
        fPoligono(l,
                  {
                      {dblX - 11, dblY                 },
                      {dblX - 11, dblY - dblAlto * 0.86},
                      {dblX,      dblY - dblAlto       },
                      {dblX + 11, dblY - dblAlto * 0.86},
                      {dblX + 11, dblY                 }
        },
                  QColor(250, 250, 246));
    }
}

} // namespace

void fPintarCamino(clsLienzo &l)
{
    const double dblCampo = l.dblAlto * l.azar.fEntre(0.46, 0.54);
    fFondo(l, 0, dblCampo, QColor(84, 156, 220), QColor(226, 238, 240));
    fNubes(l, l.fCuantos(5), 80, dblCampo * 0.75, QColor(255, 255, 255));
    fLoma(l, dblCampo - 50, 34, QColor(138, 166, 176), QColor(120, 156, 130));
    fLoma(l, dblCampo - 14, 18, QColor(134, 168, 100), QColor(112, 156, 76));
    const bool bolTrigo = l.azar.fMoneda(0.6);
    const QColor colLejos = bolTrigo ? QColor(236, 206, 120) : QColor(150, 190, 90);
    const QColor colCerca = bolTrigo ? QColor(206, 156, 62) : QColor(78, 136, 52);
    const double dblMeta = l.dblAncho * l.azar.fEntre(0.3, 0.7);
    fIglesia(l, dblMeta + 20, dblCampo + 4, 120, QColor(220, 200, 164));
    fCasa(l, dblMeta - 70, dblCampo + 4, 90, 62, QColor(240, 228, 204), QColor(100, 90, 90));
    fFondo(l, dblCampo, l.dblAlto, colLejos, colCerca);
    fHierba(l, dblCampo + 4, l.dblAlto * 1.03, l.fCuantos(2600), colLejos.lighter(106),
            colCerca.darker(116));
    fSenda(l, dblCampo, dblMeta);
    for (const double dblLado : {0.06, 0.13, 0.9, 0.97}) {
        const double dblX = l.dblAncho * dblLado + l.azar.fEntre(-20, 20);
        fCipres(l, dblX, dblCampo + l.azar.fEntre(20, 60), l.azar.fEntre(170, 260));
    }
    const int intCaminantes = l.azar.fEntero(1, 3);
    for (int intI = 0; intI < intCaminantes; ++intI) {
        const double dblX = l.dblAncho * 0.5 + (intI - 1) * 130 + l.azar.fEntre(-15, 15);
        fPeregrino(l, dblX, l.dblAlto * (0.8 + 0.03 * intI), 230 + 12.0 * intI);
    }
    fMojon(l, l.dblAncho * (l.azar.fMoneda() ? 0.16 : 0.84), l.dblAlto * 0.94, 260);
}

void fPintarJardin(clsLienzo &l)
{
    const double dblCesped = l.dblAlto * 0.56;
    fFondo(l, 0, dblCesped, QColor(112, 184, 232), QColor(232, 244, 248));
    fNubes(l, l.fCuantos(3), 80, dblCesped * 0.5, QColor(255, 255, 255));
    fLoma(l, dblCesped - 60, 20, QColor(96, 150, 90), QColor(70, 126, 66));
    const QColor colPared =
        fElegir(l, {QColor(248, 240, 220), QColor(244, 222, 180), QColor(232, 200, 176)});
    fCasa(l, l.dblAncho * l.azar.fEntre(0.5, 0.7), dblCesped, 400, 330, colPared,
          QColor(120, 164, 190));
    fValla(l, dblCesped + 14, 90);
    fFondo(l, dblCesped + 8, l.dblAlto, QColor(132, 190, 84), QColor(60, 132, 48));
    fHierba(l, dblCesped + 30, l.dblAlto * 1.02, l.fCuantos(900), QColor(74, 144, 54),
            QColor(168, 212, 96));
    const double dblArbol = l.dblAncho * l.azar.fEntre(0.12, 0.28);
    fArbol(l, dblArbol, l.dblAlto * 0.7, 520, QColor(86, 156, 62));
    for (int intI = 0; intI < 18; ++intI) { // oranges
        const double dblX = dblArbol + l.azar.fEntre(-120, 120);
        const double dblY = l.dblAlto * 0.7 - 345 + l.azar.fEntre(-120, 120);
        fElipse(l, dblX, dblY, 11, 11, QColor(244, 146, 36));
    }
    if (l.azar.fMoneda(0.6)) {
        fPersona(l, l.dblAncho * l.azar.fEntre(0.4, 0.55), l.dblAlto * 0.8, l.azar.fEntre(210, 290),
                 fRopa(l));
    }
    const std::vector<QColor> lstPetalos{QColor(228, 60, 84),   QColor(250, 170, 200),
                                         QColor(255, 255, 250), QColor(150, 90, 200),
                                         QColor(248, 200, 60),  QColor(240, 116, 50)};
    const int intFlores = l.fCuantos(46);
    for (int intI = 0; intI < intFlores; ++intI) {
        const double dblCerca = static_cast<double>(intI) / intFlores;
        const double dblX = l.azar.fEntre(-10, l.dblAncho + 10);
        fFlor(l, dblX, l.dblAlto * (0.86 + 0.16 * dblCerca), 60 + 80 * dblCerca,
              fElegir(l, lstPetalos));
    }
}

void fPintarPueblo(clsLienzo &l)
{
    fFondo(l, 0, l.dblAlto * 0.6, QColor(58, 134, 208), QColor(206, 230, 244));
    fNubes(l, l.fCuantos(2), 70, 240, QColor(255, 255, 255));
    fPico(l, l.dblAncho * l.azar.fEntre(0.2, 0.8), l.dblAlto * 0.5, 1300, 300,
          QColor(150, 156, 160), false);
    fLoma(l, l.dblAlto * 0.46, 50, QColor(142, 160, 92), QColor(110, 134, 70));
    const int intFilas = static_cast<int>(l.dblAlto * 0.4 / 75);
    const int intIglesia = l.azar.fEntero(0, 1);
    for (int intFila = 0; intFila < intFilas; ++intFila) { // up the slope, the upper rows first
        const double dblY = l.dblAlto * 0.46 + 75.0 * intFila;
        const double dblTam = 105 + 9.0 * intFila;
        if (intFila == intIglesia) {
            fIglesia(l, l.dblAncho * l.azar.fEntre(0.35, 0.6), dblY, 300, QColor(240, 222, 184));
        }
        for (double dblX = l.azar.fEntre(-0.2, 0.6) * dblTam; dblX < l.dblAncho + dblTam;) {
            const double dblAncho = dblTam * l.azar.fEntre(0.85, 1.4);
            const QColor colPared =
                fElegir(l, {QColor(254, 253, 248), QColor(248, 246, 240), QColor(252, 244, 224)});
            fCasa(l, dblX, dblY + l.azar.fEntre(-10, 10), dblAncho,
                  dblTam * l.azar.fEntre(0.85, 1.2), colPared, QColor(66, 92, 120));
            dblX += dblAncho * l.azar.fEntre(0.95, 1.25);
        }
    }
    fLoma(l, l.dblAlto * 0.9, 22, QColor(150, 166, 84), QColor(96, 120, 56));
    for (int intI = 0; intI < l.fCuantos(6); ++intI) { // olive trees
        const double dblX = l.azar.fEntre(0, l.dblAncho);
        fArbol(l, dblX, l.dblAlto * l.azar.fEntre(0.93, 1), l.azar.fEntre(130, 190),
               QColor(128, 148, 96));
    }
}

} // namespace demo
