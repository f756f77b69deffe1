#pragma once

#include <string>

/// A JPEG file of three components without subsampling whose scans hold next to nothing.
struct clsJpegVacio {
    int intAncho = 0;
    int intAlto = 0;
    bool bolProgresivo = false;
    int intPasadas = 1;
    std::string strAntes{};  ///< segments before the tables
    int intRelleno = 50;     ///< bytes of each scan
    bool bolSueltas = false; ///< of a picture that is not progressive: each component has its scan

    [[nodiscard]] std::string fBytes() const
    {
        using namespace std::string_literals;
        std::string strJpeg = "\xFF\xD8" + strAntes;
        strJpeg += "\xFF\xDB\0\x43\0"s + std::string(64, '\1'); // ISO/IEC 10918-1, annex B.2.4
        for (const char chrTabla : {'\0', '\x10'}) {
            // One code of one bit, which says that nothing follows.
            strJpeg += "\xFF\xC4\0\x14"s + chrTabla + '\1' + std::string(16, '\0');
        }
        strJpeg += "\xFF"s + (bolProgresivo ? '\xC2' : '\xC0') + "\0\x11\x08"s + fCorto(intAlto) +
                   fCorto(intAncho) + "\3\1\x11\0\2\x11\0\3\x11\0"s;
        for (int intPasada = 0; intPasada < intPasadas; ++intPasada) {
            strJpeg += fPasada(intPasada) + std::string(static_cast<std::size_t>(intRelleno), '\0');
        }
        return strJpeg + "\xFF\xD9";
    }

private:
    static std::string fCorto(int intNumero)
    {
        return {static_cast<char>(intNumero >> 8), static_cast<char>(intNumero)};
    }
    [[nodiscard]] std::string fPasada(int intPasada) const
    {
        using namespace std::string_literals;
        const char chrCual = static_cast<char>(1 + intPasada % 3);
        if (bolSueltas || intPasada > 0) {
            const char chrBanda = static_cast<char>(1 + intPasada % 60);
            return "\xFF\xDA\0\x08\1"s + chrCual + '\0' +
                   (bolProgresivo ? std::string{chrBanda, chrBanda} : "\0\x3F"s) + '\0';
        }
        return "\xFF\xDA\0\x0C\3\1\0\2\0\3\0\0"s + (bolProgresivo ? '\0' : '\x3F') + '\0';
    }
};
