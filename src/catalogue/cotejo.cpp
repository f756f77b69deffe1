#include "catalogue/cotejo.h"

#include "shared/qtexto.h"

#include <QCollator>

#include <algorithm>
#include <numeric>

std::vector<std::uint32_t> fRangosEspanol(const std::vector<std::string_view> &lstTextos)
{
    QCollator cotejo(QLocale(QLocale::Spanish, QLocale::Spain));
    cotejo.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QCollatorSortKey> lstClaves;
    lstClaves.reserve(lstTextos.size());
    for (const std::string_view strTexto : lstTextos) {
        lstClaves.push_back(cotejo.sortKey(fQPantalla(strTexto)));
    }
    std::vector<std::uint32_t> lstOrden(lstTextos.size());
    std::iota(lstOrden.begin(), lstOrden.end(), 0U);
    std::sort(lstOrden.begin(), lstOrden.end(), [&](std::uint32_t lngUno, std::uint32_t lngOtro) {
        const int intOrden = lstClaves[lngUno].compare(lstClaves[lngOtro]);
        return intOrden != 0 ? intOrden < 0 : lstTextos[lngUno] < lstTextos[lngOtro];
    });
    std::vector<std::uint32_t> lstRangos(lstTextos.size());
    std::uint32_t lngRango = 0;
    for (std::size_t lng = 0; lng < lstOrden.size(); ++lng) {
        if (lng > 0 && lstTextos[lstOrden[lng]] != lstTextos[lstOrden[lng - 1]]) {
            ++lngRango;
        }
        lstRangos[lstOrden[lng]] = lngRango;
    }
    return lstRangos;
}
