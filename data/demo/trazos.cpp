#include "trazos.h"

#include <algorithm>
#include <cmath>
#include <QPolygonF>
#include <QRadialGradient>

namespace demo {

namespace {

QColor fMezcla(const QColor &colA, const QColor &colB, double dblParte)
{
    const auto fEntre = [&](int intA, int intB) { return qRound(intA + (intB - intA) * dblParte); };
    return QColor(fEntre(colA.red(), colB.red()), fEntre(colA.green(), colB.green()),
                  fEntre(colA.blue(), colB.blue()), colA.alpha());
}

/// "A-20/50": the colour A, a fifth of the way to ink, half see-through.
QColor fColor(const QString &strColor, const clsTintas &lstTintas)
{
    const auto fParte = [&](QChar chrSigno) {
        const qsizetype lngLugar = strColor.indexOf(chrSigno);
        return lngLugar < 0 ? 0.0 : strColor.mid(lngLugar + 1, 2).toDouble() / 100;
    };
    const auto tinta = lstTintas.find(strColor.at(0));
    const bool bolLetra = strColor.size() < 6 && tinta != lstTintas.end();
    QColor color = bolLetra ? tinta->second : QColor('#' + strColor.left(6));
    color = fMezcla(color, Qt::white, fParte('+'));
    color = fMezcla(color, QColor(0x2b2630), fParte('-'));
    if (strColor.contains('/')) {
        color.setAlphaF(static_cast<float>(fParte('/')));
    }
    return color;
}

/// Light comes from above: what is filled gets darker downwards.
QBrush fRelleno(const QColor &color)
{
    QLinearGradient degradado(0, 0, 0, 1);
    degradado.setCoordinateMode(QGradient::ObjectMode);
    degradado.setColorAt(0, fMezcla(color, Qt::white, 0.1));
    degradado.setColorAt(1, fMezcla(color, QColor(0x2b2630), 0.14));
    return degradado;
}

QPolygonF fPuntos(const std::vector<double> &n, std::size_t lngDesde)
{
    QPolygonF puntos;
    for (; lngDesde + 1 < n.size(); lngDesde += 2) {
        puntos << QPointF(n[lngDesde], n[lngDesde + 1]);
    }
    return puntos;
}

void fHalo(QPainter &pintor, const std::vector<double> &n, QColor color)
{
    QRadialGradient degradado(n[0], n[1], n[2]);
    const float sngAlfa = color.alphaF();
    for (const float sngLejos : {0.0F, 0.4F, 1.0F}) {
        color.setAlphaF(sngAlfa * (1 - sngLejos) * (1 - sngLejos));
        degradado.setColorAt(sngLejos, color);
    }
    pintor.setBrush(degradado);
    pintor.drawEllipse(QPointF(n[0], n[1]), n[2], n[2]);
}

void fVentanas(clsLienzo &l, const std::vector<double> &n, const QColor &color)
{
    for (int intI = 0; intI < n[4] * n[5]; ++intI) {
        const double dblX = n[0] + n[2] * (intI % static_cast<int>(n[4]) + 0.2) / n[4];
        const double dblY = n[1] + n[3] * (intI / static_cast<int>(n[4]) + 0.2) / n[5];
        const double dblLuz = l.azar.fMoneda(0.45) ? l.azar.fEntre(0, 0.4) : 0.85;
        l.pintor.fillRect(QRectF(dblX, dblY, n[2] * 0.6 / n[4], n[3] * 0.55 / n[5]),
                          fMezcla(color, QColor(0x2b2a48), dblLuz));
    }
}

/// Over the whole width, from the line of the feet down.
void fBanda(clsLienzo &l, double dblAlto, double dblOndas, const clsTintas &lstTintas)
{
    const double dblFase = l.azar.fEntre(0, 6.28);
    const double dblLargo = l.azar.fEntre(150, 260);
    QPolygonF contorno({{l.dblAncho + 9, dblAlto + 2}, {-9, dblAlto + 2}});
    for (double dblX = -9; dblX < l.dblAncho + 18; dblX += 9) {
        const double dblOnda = std::sin(dblX / dblLargo + dblFase) +
                               0.3 * std::sin(dblX / dblLargo * 2.7 + dblFase * 2);
        contorno << QPointF(dblX, dblOnda * dblOndas);
    }
    QLinearGradient degradado(0, 0, 0, dblAlto);
    degradado.setColorAt(0, lstTintas.at('A'));
    degradado.setColorAt(1, lstTintas.at('B'));
    l.pintor.setBrush(degradado);
    l.pintor.drawPolygon(contorno);
}

void fTrazar(clsLienzo &l, const clsTrazo &trazo, const clsTintas &lstTintas)
{
    const QColor color = fColor(trazo.strColor, lstTintas);
    const std::vector<double> &n = trazo.lstNumeros;
    l.pintor.setBrush(fRelleno(color));
    switch (trazo.chrQue) {
    case 'e':
        return l.pintor.drawEllipse(QPointF(n[0], n[1]), n[2], n[3]);
    case 'c':
        return l.pintor.drawRect(QRectF(n[0], n[1], n[2], n[3]));
    case 'p':
        return l.pintor.drawPolygon(fPuntos(n, 0));
    case 'l':
        l.pintor.setPen(QPen(color, n[0], Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        l.pintor.drawPolyline(fPuntos(n, 1));
        return l.pintor.setPen(Qt::NoPen); // everything else is drawn without an outline
    case 'h':
        return fHalo(l.pintor, n, color);
    case 'g':
        return fVentanas(l, n, color);
    default:
        return fBanda(l, n[0], trazo.chrQue == 'w' ? n[1] : 0, lstTintas);
    }
}

clsTrazo fLeerTrazo(QStringList lstPartes)
{
    clsTrazo trazo{};
    if (lstPartes.first().at(0).isDigit()) { // 12@0,-50
        const QStringList lstVueltas =
            lstPartes.takeFirst().replace('@', ",0,").replace('%', ",1,").split(',');
        trazo.intVeces = lstVueltas[0].toInt();
        trazo.bolGira = lstVueltas[1] == '1';
        trazo.centro = {lstVueltas[2].toDouble(), lstVueltas[3].toDouble()};
    }
    const QChar chrQue = lstPartes.takeFirst().at(0);
    trazo.bolEspejo = chrQue.isUpper();
    trazo.chrQue = chrQue.toLower().toLatin1();
    trazo.strColor = lstPartes.takeFirst();
    for (const QString &strNumero : lstPartes) {
        trazo.lstNumeros.push_back(strNumero.toDouble());
    }
    return trazo;
}

} // namespace

std::vector<clsFigura> fFiguras(const char *strTexto)
{
    std::vector<clsFigura> lstFiguras;
    for (const QString &strFigura : QString::fromLatin1(strTexto).split('|')) {
        clsFigura &figura = lstFiguras.emplace_back();
        for (const QString &strTrazo : strFigura.split(';')) {
            figura.push_back(fLeerTrazo(strTrazo.simplified().split(' ')));
        }
    }
    return lstFiguras;
}

clsTintas fTintas(clsAzar &azar, const QStringList &lstColores)
{
    const auto fElegir = [&](std::initializer_list<QRgb> lstQ) {
        return QColor(lstQ.begin()[azar.fEntero(0, static_cast<int>(lstQ.size()) - 1)]);
    };
    clsTintas lstTintas;
    const int intUltimo = std::max(static_cast<int>(lstColores.size()) - 2, 0);
    lstTintas['A'] = QColor('#' + lstColores[azar.fEntero(0, intUltimo)]);
    lstTintas['B'] = QColor('#' + lstColores.last());
    lstTintas['K'] = QColor(0x2b2630);
    lstTintas['W'] = Qt::white;
    lstTintas['M'] = QColor(0x6b4a32);
    lstTintas['S'] = fElegir({0xf2c7a0, 0xe4ae84, 0xf7d3b3, 0xc98f64});
    lstTintas['H'] = fElegir({0x4a3020, 0x2c2320, 0x8a5a2c, 0xc9a05a, 0x8d8a88});
    lstTintas['T'] = fElegir({0x3b4a6b, 0x54463c, 0x2f3238, 0x6b7a8f});
    lstTintas['R'] = fElegir({0xba5e3e, 0xaa523a, 0xc66e48});
    lstTintas['D'] = fElegir({0x305c82, 0x70482e, 0x346c54});
    return lstTintas;
}

void fDibujar(clsLienzo &l, const clsFigura &figura, const clsTintas &lstTintas)
{
    for (const clsTrazo &trazo : figura) {
        for (int intI = 0; intI < trazo.intVeces; ++intI) {
            l.pintor.save();
            l.pintor.translate(trazo.centro);
            l.pintor.rotate(360.0 * intI / trazo.intVeces + (trazo.bolGira ? 90 * l.dblTiempo : 0));
            l.pintor.translate(-trazo.centro);
            fTrazar(l, trazo, lstTintas);
            if (trazo.bolEspejo) {
                l.pintor.scale(-1, 1);
                fTrazar(l, trazo, lstTintas);
            }
            l.pintor.restore();
        }
    }
}

} // namespace demo
