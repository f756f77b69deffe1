#include "shared/uri.h"

namespace {

bool fQuedaIgual(char chr)
{
    return (chr >= 'A' && chr <= 'Z') || (chr >= 'a' && chr <= 'z') || (chr >= '0' && chr <= '9') ||
           std::string_view("-_.!~*'()/&=+$,:@").find(chr) != std::string_view::npos;
}

} // namespace

std::string fUriDeRuta(std::string_view strRuta)
{
    constexpr std::string_view strCifras = "0123456789ABCDEF";
    std::string strUri = "file://";
    for (const char chr : strRuta) {
        if (fQuedaIgual(chr)) {
            strUri += chr;
        } else {
            const auto byt = static_cast<unsigned char>(chr);
            strUri += {'%', strCifras[byt >> 4U], strCifras[byt & 15U]};
        }
    }
    return strUri;
}
