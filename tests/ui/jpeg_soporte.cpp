#include "jpeg_soporte.h"

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

std::string fNumero(std::uint32_t lngNumero, int intBytes)
{
    std::string strBytes;
    for (int intByte = 0; intByte < intBytes; ++intByte) {
        strBytes += static_cast<char>(lngNumero >> (8 * intByte) & 0xFF);
    }
    return strBytes;
}

std::string fEntrada(std::uint32_t lngCodigo, std::uint32_t lngTipo, std::uint32_t lngValor)
{
    return fNumero(lngCodigo, 2) + fNumero(lngTipo, 2) + fNumero(1, 4) + fNumero(lngValor, 4);
}

} // namespace

std::string clsJpegConMini::fBytes() const
{
    constexpr std::uint32_t lngIfd1 = 8 + 2 + 12 + 4;
    constexpr std::uint32_t lngDatos = lngIfd1 + 2 + 3 * 12 + 4;
    const std::string strMini = fEscribir(miniatura, false);
    const auto lngMini = static_cast<std::uint32_t>(strMini.size());
    const std::string strTiff =
        "II*" + std::string(1, '\0') + fNumero(8, 4) + fNumero(1, 2) +
        fEntrada(0x0112, 3, static_cast<std::uint32_t>(intOrientacion)) + fNumero(lngIfd1, 4) +
        fNumero(3, 2) + fEntrada(0x0103, 3, 6) + fEntrada(0x0201, 4, lngDatos + lngMas) +
        fEntrada(0x0202, 4, lngLargo == 0 ? lngMini : lngLargo) + fNumero(0, 4) + strMini;
    const std::size_t lngSegmento = 2 + 6 + strTiff.size();
    std::string strJpeg = fEscribir(imagen, bolProgresivo);
    strJpeg.insert(2, std::string("\xFF\xE1") + static_cast<char>(lngSegmento >> 8) +
                          static_cast<char>(lngSegmento & 0xFF) + std::string("Exif\0\0", 6) +
                          strTiff);
    return strJpeg;
}

std::string fJpegCmyk() { return QByteArray::fromHex(strCmyk).toStdString(); }
