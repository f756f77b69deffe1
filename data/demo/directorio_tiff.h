// An image file directory of a TIFF stream. Source: TIFF 6.0, section 2.
#pragma once

#include "bytes.h"

#include <string>
#include <vector>

namespace demo {

// Field types, TIFF 6.0 section 2.
inline constexpr quint32 lngAscii = 2;
inline constexpr quint32 lngShort = 3;
inline constexpr quint32 lngLong = 4;
inline constexpr quint32 lngRational = 5;
inline constexpr quint32 lngUndefined = 7;

/// One image file directory. Values of up to four bytes stand in the entry itself, longer ones
/// behind the directory (TIFF 6.0 section 2).
class clsDirectorio {
public:
    explicit clsDirectorio(enmOrden orden) : ordenBytes(orden) {}

    void fTexto(quint32 lngEtiqueta, const std::string &strValor)
    {
        clsBytes valor(ordenBytes);
        valor.fPonerTexto(strValor);
        valor.fPonerCeros(1); // the count of an ASCII field includes the NUL
        fAnotar(lngEtiqueta, lngAscii, valor.fLargo(), valor);
    }
    void fCorto(quint32 lngEtiqueta, quint32 lngValor)
    {
        clsBytes valor(ordenBytes);
        valor.fPoner16(lngValor);
        fAnotar(lngEtiqueta, lngShort, 1, valor);
    }
    void fLargo(quint32 lngEtiqueta, quint32 lngValor)
    {
        clsBytes valor(ordenBytes);
        valor.fPoner32(lngValor);
        fAnotar(lngEtiqueta, lngLong, 1, valor);
    }
    void fRacional(quint32 lngEtiqueta, quint32 lngArriba, quint32 lngAbajo)
    {
        clsBytes valor(ordenBytes);
        valor.fPoner32(lngArriba);
        valor.fPoner32(lngAbajo);
        fAnotar(lngEtiqueta, lngRational, 1, valor);
    }
    void fBruto(quint32 lngEtiqueta, std::string_view strBytes)
    {
        clsBytes valor(ordenBytes);
        valor.fPonerTexto(strBytes);
        fAnotar(lngEtiqueta, lngUndefined, valor.fLargo(), valor);
    }

    /// Bytes of the directory and of the values behind it.
    quint32 fTamano() const
    {
        quint32 lngSuma = fTamanoTabla();
        for (const clsCampo &campo : lstCampos) {
            lngSuma += fFuera(campo);
        }
        return lngSuma;
    }

    /// Appends to the TIFF stream, whose first byte is offset zero.
    void fEscribir(clsBytes &tiff, quint32 lngSiguiente) const
    {
        quint32 lngFuera = tiff.fLargo() + fTamanoTabla();
        tiff.fPoner16(static_cast<quint32>(lstCampos.size()));
        for (const clsCampo &campo : lstCampos) {
            tiff.fPoner16(campo.lngEtiqueta);
            tiff.fPoner16(campo.lngTipo);
            tiff.fPoner32(campo.lngCuenta);
            if (fFuera(campo) > 0) {
                tiff.fPoner32(lngFuera);
                lngFuera += fFuera(campo);
            } else {
                tiff.fPonerBytes(campo.datValor);
                tiff.fPonerCeros(4 - static_cast<int>(campo.datValor.size()));
            }
        }
        tiff.fPoner32(lngSiguiente);
        fEscribirFuera(tiff);
    }

private:
    struct clsCampo {
        quint32 lngEtiqueta;
        quint32 lngTipo;
        quint32 lngCuenta;
        QByteArray datValor;
    };

    void fAnotar(quint32 lngEtiqueta, quint32 lngTipo, quint32 lngCuenta, const clsBytes &valor)
    {
        lstCampos.push_back({lngEtiqueta, lngTipo, lngCuenta, valor.fDatos()});
    }
    quint32 fTamanoTabla() const { return static_cast<quint32>(2 + 12 * lstCampos.size() + 4); }

    /// Bytes outside of the entry, rounded up: values begin on a word boundary.
    static quint32 fFuera(const clsCampo &campo)
    {
        const auto lngLargo = static_cast<quint32>(campo.datValor.size());
        return lngLargo > 4 ? lngLargo + lngLargo % 2 : 0;
    }
    void fEscribirFuera(clsBytes &tiff) const
    {
        for (const clsCampo &campo : lstCampos) {
            if (fFuera(campo) > 0) {
                tiff.fPonerBytes(campo.datValor);
                tiff.fPonerCeros(static_cast<int>(campo.datValor.size() % 2));
            }
        }
    }

    enmOrden ordenBytes;
    std::vector<clsCampo> lstCampos; // in ascending order of their tags, as TIFF 6.0 demands
};

} // namespace demo
