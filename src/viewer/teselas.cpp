#include "viewer/teselas.h"

#include <algorithm>

namespace {

std::size_t fCuantas(int intPixeles)
{
    return static_cast<std::size_t>((intPixeles + clsTeselas::intLado - 1) / clsTeselas::intLado);
}

} // namespace

clsTeselas::clsTeselas(int intAncho, int intAlto)
    : m_intAncho(intAncho), m_intAlto(intAlto), m_lngColumnas(fCuantas(intAncho)),
      m_lstDadas(m_lngColumnas * fCuantas(intAlto))
{
}

std::vector<clsTesela> clsTeselas::fNuevas(const clsTesela &parte)
{
    std::vector<clsTesela> lstNuevas;
    const int intIzq = std::max(parte.intX, 0);
    const int intArriba = std::max(parte.intY, 0);
    const int intDerecha = std::min(parte.intX + parte.intAncho, m_intAncho);
    const int intAbajo = std::min(parte.intY + parte.intAlto, m_intAlto);
    if (intIzq >= intDerecha || intArriba >= intAbajo) {
        return lstNuevas;
    }
    const auto fPrimera = [](int intPos) { return intPos / intLado * intLado; };
    for (int intY = fPrimera(intArriba); intY < intAbajo; intY += intLado) {
        for (int intX = fPrimera(intIzq); intX < intDerecha; intX += intLado) {
            if (!fDada(intX, intY)) {
                m_lstDadas[fLugar(intX, intY)] = true;
                lstNuevas.push_back({intX, intY, std::min(intLado, m_intAncho - intX),
                                     std::min(intLado, m_intAlto - intY)});
            }
        }
    }
    return lstNuevas;
}
