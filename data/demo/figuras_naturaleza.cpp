// Trees, mountains, flowers.
#include "figuras.h"

#include <cmath>
#include <QLinearGradient>
#include <QPainterPath>

namespace demo {

namespace {

/// One flank of a peak from its foot to the top, uneven.
std::vector<QPointF> fLadera(clsLienzo &l, double dblX, double dblY, double dblHasta,
                             double dblAlto)
{
    std::vector<QPointF> lstPuntos;
    constexpr int intPasos = 9;
    for (int intI = 0; intI < intPasos; ++intI) {
        const double dblParte = static_cast<double>(intI) / intPasos;
        const double dblSalto = intI == 0 ? 0 : l.azar.fEntre(-0.05, 0.03) * dblAlto;
        lstPuntos.emplace_back(dblX + (dblHasta - dblX) * dblParte,
                               dblY - dblAlto * std::pow(dblParte, 1.15) + dblSalto);
    }
    return lstPuntos;
}

/// The snow reaches down both flanks and ends in a zigzag between them.
void fNieveDelPico(clsLienzo &l, const std::vector<QPointF> &lstIzquierda, const QPointF &cumbre,
                   const std::vector<QPointF> &lstDerecha)
{
    std::vector<QPointF> lstNieve(lstIzquierda.begin() + 6, lstIzquierda.end());
    lstNieve.push_back(cumbre);
    lstNieve.insert(lstNieve.end(), lstDerecha.rbegin(), lstDerecha.rend() - 6);
    const QPointF desde = lstNieve.back();
    const QPointF hasta = lstNieve.front();
    constexpr int intDientes = 8;
    for (int intI = 1; intI < intDientes; ++intI) {
        const QPointF medio = desde + (hasta - desde) * (static_cast<double>(intI) / intDientes);
        const double dblBaja = l.azar.fEntre(0.05, 0.22) * (desde.y() - cumbre.y());
        lstNieve.emplace_back(medio.x(), medio.y() + (intI % 2 == 1 ? dblBaja : -dblBaja));
    }
    fPoligono(l, lstNieve, QColor(247, 250, 255));
}

} // namespace

void fArbol(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colHoja)
{
    const QColor colTronco(96, 66, 42);
    fElipse(l, dblX, dblY, dblAlto * 0.3, dblAlto * 0.03, QColor(20, 40, 10, 70));
    fPoligono(l,
              {
                  {dblX - dblAlto * 0.05,  dblY                },
                  {dblX - dblAlto * 0.025, dblY - dblAlto * 0.5},
                  {dblX + dblAlto * 0.025, dblY - dblAlto * 0.5},
                  {dblX + dblAlto * 0.05,  dblY                }
    },
              colTronco);
    for (int intI = 0; intI < 60; ++intI) { // dark leaves first, those in the light on top
        const double dblLuz = intI / 60.0;
        const double dblGiro = l.azar.fEntre(0, 6.28);
        const double dblLejos = std::sqrt(l.azar.fEntre(0, 1)) * dblAlto * 0.3;
        const double dblRadio = l.azar.fEntre(0.05, 0.11) * dblAlto;
        const QColor colAqui = fMezcla(colHoja.darker(165), colHoja.lighter(122), dblLuz);
        fElipse(l, dblX + std::cos(dblGiro) * dblLejos - dblLuz * dblAlto * 0.05,
                dblY - dblAlto * 0.66 + std::sin(dblGiro) * dblLejos - dblLuz * dblAlto * 0.06,
                dblRadio, dblRadio, fConAlfa(colAqui, 225));
    }
}

void fPino(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colHoja,
           bool bolNevado)
{
    fCaja(l, dblX - dblAlto * 0.03, dblY - dblAlto * 0.15, dblAlto * 0.06, dblAlto * 0.15,
          QColor(80, 56, 40));
    for (int intI = 0; intI < 4; ++intI) {
        const double dblMitad = dblAlto * (0.27 - intI * 0.055);
        const double dblPie = dblY - dblAlto * (0.1 + intI * 0.2);
        const double dblPunta = dblPie - dblAlto * 0.32;
        fPoligono(l,
                  {
                      {dblX - dblMitad, dblPie  },
                      {dblX,            dblPunta},
                      {dblX + dblMitad, dblPie  }
        },
                  colHoja);
        fPoligono(l,
                  {
                      {dblX,            dblPie  },
                      {dblX,            dblPunta},
                      {dblX + dblMitad, dblPie  }
        },
                  QColor(0, 0, 0, 40));
        if (bolNevado) {
            const double dblBorde = dblPie - dblAlto * 0.13;
            fPoligono(l,
                      {
                          {dblX - dblMitad * 0.6,  dblBorde                 },
                          {dblX,                   dblPunta                 },
                          {dblX + dblMitad * 0.6,  dblBorde                 },
                          {dblX + dblMitad * 0.25, dblBorde - 4             },
                          {dblX,                   dblBorde + dblAlto * 0.03},
                          {dblX - dblMitad * 0.25, dblBorde - 4             }
            },
                      QColor(245, 249, 255));
        }
    }
}

void fPalmera(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colTinte)
{
    const double dblCopa = dblX + dblAlto * 0.14;
    const double dblArriba = dblY - dblAlto * 0.82;
    QPainterPath tronco(QPointF(dblX, dblY));
    tronco.quadTo(dblX - dblAlto * 0.02, dblY - dblAlto * 0.5, dblCopa, dblArriba);
    l.pintor.strokePath(tronco, QPen(fMezcla(QColor(120, 88, 58), colTinte, 0.5), dblAlto * 0.045,
                                     Qt::SolidLine, Qt::RoundCap));
    for (int intI = 0; intI < 9; ++intI) {
        const double dblGiro = 3.14 + intI * 3.14 / 8;
        const double dblPuntaX = dblCopa + std::cos(dblGiro) * dblAlto * 0.36;
        const double dblPuntaY = dblArriba + std::sin(dblGiro) * dblAlto * 0.16 + dblAlto * 0.11;
        const double dblMedioX = dblCopa + std::cos(dblGiro) * dblAlto * 0.2;
        const double dblMedioY = dblArriba + std::sin(dblGiro) * dblAlto * 0.22;
        QPainterPath hoja(QPointF(dblCopa, dblArriba));
        hoja.quadTo(dblMedioX, dblMedioY - dblAlto * 0.08, dblPuntaX, dblPuntaY);
        hoja.quadTo(dblMedioX, dblMedioY + dblAlto * 0.02, dblCopa, dblArriba);
        l.pintor.setBrush(intI % 2 == 0 ? colTinte : colTinte.darker(130));
        l.pintor.drawPath(hoja);
    }
}

void fCipres(clsLienzo &l, double dblX, double dblY, double dblAlto)
{
    QPainterPath copa(QPointF(dblX, dblY - dblAlto));
    copa.cubicTo(dblX + dblAlto * 0.13, dblY - dblAlto * 0.45, dblX + dblAlto * 0.11, dblY, dblX,
                 dblY);
    copa.cubicTo(dblX - dblAlto * 0.11, dblY, dblX - dblAlto * 0.13, dblY - dblAlto * 0.45, dblX,
                 dblY - dblAlto);
    QLinearGradient degradado(dblX - dblAlto * 0.1, 0, dblX + dblAlto * 0.1, 0);
    degradado.setColorAt(0, QColor(70, 104, 62));
    degradado.setColorAt(1, QColor(30, 56, 38));
    l.pintor.setBrush(degradado);
    l.pintor.drawPath(copa);
}

void fPico(clsLienzo &l, double dblX, double dblY, double dblAncho, double dblAlto,
           const QColor &colRoca, bool bolNieve)
{
    const std::vector<QPointF> lstIzquierda = fLadera(l, dblX - dblAncho / 2, dblY, dblX, dblAlto);
    const std::vector<QPointF> lstDerecha = fLadera(l, dblX + dblAncho / 2, dblY, dblX, dblAlto);
    const QPointF cumbre(dblX, dblY - dblAlto);
    std::vector<QPointF> lstTodo = lstIzquierda;
    lstTodo.push_back(cumbre);
    lstTodo.insert(lstTodo.end(), lstDerecha.rbegin(), lstDerecha.rend());
    QLinearGradient degradado(0, dblY - dblAlto, 0, dblY);
    degradado.setColorAt(0, colRoca.lighter(112));
    degradado.setColorAt(1, colRoca);
    fPoligono(l, lstTodo, degradado);
    if (bolNieve) {
        fNieveDelPico(l, lstIzquierda, cumbre, lstDerecha);
    }
    std::vector<QPointF> lstSombra{cumbre};
    lstSombra.insert(lstSombra.end(), lstDerecha.rbegin(), lstDerecha.rend());
    for (int intI = 0; intI < 6; ++intI) { // the crest between light and shade zigzags down
        const double dblCae = intI / 6.0;
        const double dblLado = (intI % 2 == 0 ? 0.07 : -0.03) * dblAncho;
        lstSombra.emplace_back(dblX + dblLado * (1 - dblCae * 0.6), dblY - dblAlto * dblCae);
    }
    fPoligono(l, lstSombra, QColor(25, 35, 70, 70));
}

void fFlor(clsLienzo &l, double dblX, double dblY, double dblAlto, const QColor &colPetalo)
{
    const double dblRadio = dblAlto * 0.17;
    const double dblArriba = dblY - dblAlto;
    fTrazo(l,
           {
               {dblX, dblY     },
               {dblX, dblArriba}
    },
           dblAlto * 0.05, QColor(58, 120, 48));
    fElipse(l, dblX + dblAlto * 0.13, dblY - dblAlto * 0.4, dblAlto * 0.13, dblAlto * 0.05,
            QColor(76, 145, 60));
    for (int intI = 0; intI < 7; ++intI) {
        const double dblGiro = intI * 6.2832 / 7;
        fElipse(l, dblX + std::cos(dblGiro) * dblRadio, dblArriba + std::sin(dblGiro) * dblRadio,
                dblRadio * 0.72, dblRadio * 0.72,
                intI % 2 == 0 ? colPetalo : colPetalo.darker(108));
    }
    fElipse(l, dblX, dblArriba, dblRadio * 0.62, dblRadio * 0.62, QColor(250, 205, 70));
}

} // namespace demo
