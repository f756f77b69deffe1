// Collects the bytes of a binary file in either byte order.
#pragma once

#include <initializer_list>
#include <QByteArray>
#include <string_view>

namespace demo {

enum class enmOrden {
    Intel,   // least significant byte first ("II" in TIFF; RIFF)
    Motorola // most significant byte first ("MM" in TIFF; QuickTime)
};

class clsBytes {
public:
    explicit clsBytes(enmOrden orden) : ordenBytes(orden) {}

    void fPoner16(quint32 lngValor) { datBytes.append(fOctetos(lngValor, 2)); }
    void fPoner32(quint32 lngValor) { datBytes.append(fOctetos(lngValor, 4)); }
    void fPoner32(std::initializer_list<quint32> lstValores)
    {
        for (const quint32 lngValor : lstValores) {
            fPoner32(lngValor);
        }
    }
    void fPonerTexto(std::string_view strTexto)
    {
        datBytes.append(strTexto.data(), static_cast<qsizetype>(strTexto.size()));
    }
    void fPonerBytes(const QByteArray &datos) { datBytes.append(datos); }
    void fPonerCeros(quint32 lngCuantos) { datBytes.append(lngCuantos, '\0'); }

    /// Overwrites four bytes already put: for lengths which are known only at the end.
    void fCorregir32(quint32 lngLugar, quint32 lngValor)
    {
        datBytes.replace(lngLugar, 4, fOctetos(lngValor, 4));
    }

    quint32 fLargo() const { return static_cast<quint32>(datBytes.size()); }
    const QByteArray &fDatos() const { return datBytes; }

private:
    QByteArray fOctetos(quint32 lngValor, int intBytes) const
    {
        QByteArray datOctetos;
        for (int intI = 0; intI < intBytes; ++intI) {
            const int intLugar = ordenBytes == enmOrden::Intel ? intI : intBytes - 1 - intI;
            datOctetos.append(static_cast<char>((lngValor >> (8 * intLugar)) & 0xFFU));
        }
        return datOctetos;
    }

    enmOrden ordenBytes;
    QByteArray datBytes;
};

/// A stretch of a file that is open as long as this object lives: at the end its length, counted
/// from a place on, is filled in at another one, and it is padded to a multiple.
class clsTramo {
public:
    clsTramo(clsBytes &salida, quint32 lngDondeLargo, quint32 lngDesde, quint32 lngMultiplo = 1)
        : bytSalida(salida), lngLugar(lngDondeLargo), lngInicio(lngDesde), lngRelleno(lngMultiplo)
    {
    }
    clsTramo(const clsTramo &) = delete;
    clsTramo &operator=(const clsTramo &) = delete;
    ~clsTramo()
    {
        bytSalida.fCorregir32(lngLugar, fLargo());
        bytSalida.fPonerCeros((lngRelleno - fLargo() % lngRelleno) % lngRelleno);
    }
    quint32 fLargo() const { return bytSalida.fLargo() - lngInicio; }

private:
    clsBytes &bytSalida;
    const quint32 lngLugar;
    const quint32 lngInicio;
    const quint32 lngRelleno;
};

} // namespace demo
