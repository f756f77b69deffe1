// Collects the bytes of a binary file in either byte order.
#pragma once

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

    void fPoner8(quint32 lngValor);
    void fPoner16(quint32 lngValor);
    void fPoner32(quint32 lngValor);
    void fPonerTexto(std::string_view strTexto);
    void fPonerBytes(const QByteArray &datos) { datBytes.append(datos); }
    void fPonerCeros(int intCuantos) { datBytes.append(intCuantos, '\0'); }

    /// Overwrites four bytes already put: for lengths which are known only at the end.
    void fCorregir32(qsizetype lngLugar, quint32 lngValor);

    quint32 fLargo() const { return static_cast<quint32>(datBytes.size()); }
    const QByteArray &fDatos() const { return datBytes; }

private:
    void fPoner(quint32 lngValor, int intBytes);
    char fOcteto(quint32 lngValor, int intBytes, int intIndice) const;

    enmOrden ordenBytes;
    QByteArray datBytes;
};

} // namespace demo
