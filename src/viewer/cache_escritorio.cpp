#include "viewer/cache_escritorio.h"

#include "shared/uri.h"
#include "sistema/carpeta.h"
#include "sistema/entorno.h"
#include "sistema/reemplazo.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <ctime>
#include <iterator>
#include <utility>

namespace {

struct clsTamano {
    const char *strCarpeta;
    int intLado;
};
constexpr clsTamano lstTamanos[] = {
    {"normal/",   128 },
    {"large/",    256 },
    {"x-large/",  512 },
    {"xx-large/", 1024},
};
/// Program and version; a new version of the child would have to raise it, to try again.
constexpr const char *strFallos = "fail/miravel-1/";
/// Until when a note of a failure holds, in seconds since 1970.
constexpr const char *strHasta = "X-Miravel::Until";
constexpr std::int64_t lngDia = 86400;
/// Side of a thumbnail at most, whoever made it: what claims to be larger is not read.
constexpr int intMaximoPng = 4096;

/// Keys and values of a PNG.
using clsTextos = QList<std::pair<QByteArray, QByteArray>>;

/// Name of the entry for a URI, the same in every folder.
std::string fEntrada(const std::string &strUri)
{
    const auto datUri =
        QByteArray::fromRawData(strUri.data(), static_cast<qsizetype>(strUri.size()));
    return QCryptographicHash::hash(datUri, QCryptographicHash::Md5).toHex().toStdString() + ".png";
}

/// Reads an entry; null when it does not say that it belongs to that file, with that time and size.
/// @param strCarpeta the folder of the entry.
QImage fLeerEntrada(const std::string &strCarpeta, const std::string &strRuta,
                    const clsHuella &huella)
{
    const std::string strUri = fUriDeRuta(strRuta);
    QImage imagen = fLeerPng(strCarpeta + fEntrada(strUri));
    const QString strBytes = imagen.text(QStringLiteral("Thumb::Size"));
    const bool bolSuya =
        imagen.text(QStringLiteral("Thumb::URI")).toStdString() == strUri &&
        imagen.text(QStringLiteral("Thumb::MTime")) == QString::number(huella.lngSegundos) &&
        (strBytes.isEmpty() || strBytes == QString::number(huella.lngBytes));
    return bolSuya ? imagen : QImage();
}

quint32 fCrc(const QByteArray &datBytes)
{
    quint32 lngCrc = 0xffffffffU;
    for (const char chr : datBytes) {
        lngCrc ^= static_cast<unsigned char>(chr);
        for (int intBit = 0; intBit < 8; ++intBit) {
            lngCrc = (lngCrc >> 1U) ^ ((lngCrc & 1U) != 0 ? 0xedb88320U : 0U);
        }
    }
    return ~lngCrc;
}

void fPoner32(QByteArray &datSalida, quint32 lngNumero)
{
    for (const unsigned lngBits : {24U, 16U, 8U, 0U}) {
        datSalida.append(static_cast<char>(lngNumero >> lngBits & 0xffU));
    }
}

/// The bytes of a PNG with these texts as tEXt chunks (PNG, section 11.3.4.3). Qt would compress
/// the long ones (zTXt), which not every reader of thumbnails looks at.
QByteArray fPng(const QImage &imagen, const clsTextos &lstTextos)
{
    QBuffer bufer;
    QImage desnuda = imagen;
    for (const QString &strClave : desnuda.textKeys()) {
        desnuda.setText(strClave, QString());
    }
    constexpr int intCalidad = 80; // of compression: a little, fast
    if (!bufer.open(QIODevice::WriteOnly) || !desnuda.save(&bufer, "png", intCalidad)) {
        return {};
    }
    QByteArray datTrozos;
    for (const auto &[strClave, strValor] : lstTextos) {
        const QByteArray datTrozo = "tEXt" + strClave + '\0' + strValor;
        fPoner32(datTrozos, static_cast<quint32>(datTrozo.size() - 4));
        datTrozos += datTrozo;
        fPoner32(datTrozos, fCrc(datTrozo));
    }
    constexpr qsizetype lngTrasCabecera = 8 + 25; // signature and IHDR
    QByteArray datPng = bufer.data();
    return datPng.insert(lngTrasCabecera, datTrozos);
}

/// Puts an entry in its place, whole, readable by the user alone. Not flushed: one that a power cut
/// spoils is not valid, and is made again.
/// @param lstMas keys and values besides those that say which file it belongs to.
void fPonerEntrada(const std::string &strCarpeta, const std::string &strRuta,
                   const clsHuella &huella, const QImage &imagen, const clsTextos &lstMas = {})
{
    const std::string strUri = fUriDeRuta(strRuta);
    const clsTextos lstTextos{
        {"Thumb::URI",   QByteArray::fromStdString(strUri)     },
        {"Thumb::MTime", QByteArray::number(huella.lngSegundos)},
        {"Thumb::Size",  QByteArray::number(huella.lngBytes)   },
        {"Software",     "Miravel"                             }
    };
    const QByteArray datPng = fPng(imagen, lstTextos + lstMas);
    if (datPng.isEmpty() || !fAsegurarCarpeta(strCarpeta)) {
        return;
    }
    constexpr unsigned lngPropios = 0600;
    clsReemplazo archivo(strCarpeta + fEntrada(strUri), lngPropios);
    archivo.fEscribir({datPng.data(), static_cast<std::size_t>(datPng.size())});
    static_cast<void>(archivo.fCerrar());
    static_cast<void>(archivo.fConfirmar(false));
}

} // namespace

QImage fLeerPng(const std::string &strRuta)
{
    const auto abierto = fAbrirRegular(strRuta);
    QFile archivo;
    const bool bolAbierto = abierto && archivo.open(abierto->descriptor.fFd(), QIODevice::ReadOnly);
    // The reader itself would cut texts at the first colon of their keys; the image does not.
    QImageReader lector(&archivo, "png");
    return bolAbierto && std::max(lector.size().width(), lector.size().height()) <= intMaximoPng
               ? lector.read()
               : QImage();
}

clsCacheEscritorio::clsCacheEscritorio(std::string strCarpeta) : m_strCarpeta(std::move(strCarpeta))
{
}

std::string clsCacheEscritorio::fCarpetaUsual()
{
    const std::string strCache = fCarpetaCache();
    return strCache.empty() ? strCache : strCache + "thumbnails/";
}

int clsCacheEscritorio::fLadoCache(int intLado)
{
    for (const clsTamano &tam : lstTamanos) {
        if (tam.intLado >= intLado) {
            return tam.intLado;
        }
    }
    return intLado;
}

QImage clsCacheEscritorio::fLeer(const std::string &strRuta, const clsHuella &huella, int intLado,
                                 bool bolMenores) const
{
    QImage imagen;
    const auto fProbar = [&](const clsTamano &tam, bool bolCabe) {
        if (imagen.isNull() && !m_strCarpeta.empty() && bolCabe) {
            imagen = fLeerEntrada(m_strCarpeta + tam.strCarpeta, strRuta, huella);
        }
    };
    for (const clsTamano &tam : lstTamanos) {
        fProbar(tam, tam.intLado >= intLado);
    }
    for (auto it = std::rbegin(lstTamanos); it != std::rend(lstTamanos); ++it) {
        fProbar(*it, bolMenores && it->intLado < intLado);
    }
    return imagen;
}

void clsCacheEscritorio::fGuardar(const std::string &strRuta, const clsHuella &huella, int intLado,
                                  const QImage &imagen) const
{
    for (const clsTamano &tam : lstTamanos) {
        if (tam.intLado == intLado && !fPropia(strRuta)) {
            fPonerEntrada(m_strCarpeta + tam.strCarpeta, strRuta, huella, imagen);
        }
    }
}

bool clsCacheEscritorio::fFallido(const std::string &strRuta, const clsHuella &huella) const
{
    if (m_strCarpeta.empty()) {
        return false;
    }
    const QImage nota = fLeerEntrada(m_strCarpeta + strFallos, strRuta, huella);
    const QString strLimite = nota.text(QLatin1String(strHasta));
    return !nota.isNull() && (strLimite.isEmpty() || strLimite.toLongLong() > std::time(nullptr));
}

void clsCacheEscritorio::fApuntarFallo(const std::string &strRuta, const clsHuella &huella,
                                       bool bolPasajero) const
{
    if (fPropia(strRuta)) {
        return;
    }
    clsTextos lstMas;
    if (bolPasajero) {
        lstMas.emplaceBack(strHasta, QByteArray::number(qint64{std::time(nullptr)} + lngDia));
    }
    QImage imagen(1, 1, QImage::Format_ARGB32);
    imagen.fill(Qt::transparent);
    fPonerEntrada(m_strCarpeta + strFallos, strRuta, huella, imagen, lstMas);
}

bool clsCacheEscritorio::fPropia(const std::string &strRuta) const
{
    const std::string strCarpeta = fRutaReal(m_strCarpeta);
    return m_strCarpeta.empty() || strRuta.starts_with(m_strCarpeta) ||
           (!strCarpeta.empty() && fRutaReal(strRuta).starts_with(strCarpeta + '/'));
}
