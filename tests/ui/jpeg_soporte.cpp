#include "jpeg_soporte.h"

#include "dates/tiff_prueba.h"

#include <QBuffer>
#include <QImageWriter>

namespace {

constexpr const char *strCmyk =
    "ffd8ffee000e41646f626500640000000002ffdb00430006040506050406060506070706080a100a"
    "0a09090a140e0f0c1017141818171416161a1d251f1a1b231c1616202c20232627292a29191f2d30"
    "2d283025282928ffdb0043010707070a080a130a0a13281a161a2828282828282828282828282828"
    "282828282828282828282828282828282828282828282828282828282828282828282828ffc00014"
    "080010001804012200021101031101042200ffc40016000101010000000000000000000000000000"
    "0708ffc40014100100000000000000000000000000000000ffc40016010101010000000000000000"
    "0000000000000608ffc40014110100000000000000000000000000000000ffda000e040100021103"
    "110400003f00a200b166d6a90000001fffd9";

std::string fEscribir(const QImage &imagen, bool bolProgresivo)
{
    QByteArray lstBytes;
    QBuffer bufer(&lstBytes);
    QImageWriter escritor(&bufer, "JPG");
    escritor.setQuality(90);
    escritor.setProgressiveScanWrite(bolProgresivo);
    escritor.write(imagen);
    return lstBytes.toStdString();
}

} // namespace

std::string clsJpegConMini::fBytes() const
{
    const std::string strDentro = strMini.empty() ? fEscribir(miniatura, false) : strMini;
    const auto fTiff = [&](std::size_t lngDonde) {
        return clsTiff(Orden::II)
            .fCorto(0x0112, static_cast<unsigned>(intOrientacion))
            .fIfd()
            .fCorto(0x0103, 6)
            .fLargo(0x0201, static_cast<std::uint32_t>(lngDonde) + lngMas)
            .fLargo(0x0202, lngLargo == 0 ? static_cast<std::uint32_t>(strDentro.size()) : lngLargo)
            .fHacer();
    };
    std::string strJpeg = fEscribir(imagen, bolProgresivo);
    strJpeg.insert(2, fSegmentoExif(fTiff(fTiff(0).size()) + strDentro));
    return strJpeg;
}

std::string fJpegCmyk() { return QByteArray::fromHex(strCmyk).toStdString(); }
