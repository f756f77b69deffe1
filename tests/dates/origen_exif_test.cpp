#include "dates/origen_exif.h"

#include "dates/clsFile.h"
#include "dates/exif.h"
#include "dates/fuentes.h"
#include "soporte/arbol.h"
#include "tiff_prueba.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

std::string fGrande(std::uint64_t lngNumero, unsigned intBytes = 4)
{
    std::string strBytes;
    while (intBytes-- > 0) {
        strBytes += static_cast<char>(lngNumero >> (8 * intBytes) & 0xFF);
    }
    return strBytes;
}

std::string fChico(std::uint32_t lngNumero)
{
    const std::string strGrande = fGrande(lngNumero);
    return {strGrande.rbegin(), strGrande.rend()};
}

std::string fCaja(const std::string &strTipo, const std::string &strContenido)
{
    return fGrande(strContenido.size() + 8) + strTipo + strContenido;
}

/// A photo's EXIF data: who made it, and when it was taken.
clsTiff fDatos(Orden orden = Orden::II)
{
    return clsTiff(orden)
        .fTexto(0x010F, "Canon\0"s)
        .fExif()
        .fTexto(0x9003, "2019:07:14 18:03:22\0"s);
}

std::string fPng(const std::string &strExif)
{
    const auto fTrozo = [](const std::string &strTipo, const std::string &strContenido) {
        return fGrande(strContenido.size()) + strTipo + strContenido + "crc!";
    };
    return "\x89PNG\r\n\x1A\n"s + fTrozo("IHDR", std::string(13, 'x')) +
           fTrozo("IDAT", std::string(5000, 'x')) + fTrozo("eXIf", strExif) + fTrozo("IEND", "");
}

std::string fWebp(const std::string &strExif)
{
    const std::string strTodo = "WEBPVP8X"s + fChico(10) + std::string(10, 'x') + "VP8 " +
                                fChico(3) + "xxx\0"s + "EXIF" +
                                fChico(static_cast<std::uint32_t>(strExif.size())) + strExif;
    return "RIFF" + fChico(static_cast<std::uint32_t>(strTodo.size())) + strTodo;
}

/// @param intVersion of the box that says where items lie, 0 to 2.
std::string fHeif(const std::string &strExif, unsigned intVersion)
{
    const auto fItem = [](unsigned intNumero, const char *strTipo) {
        return fCaja("infe", "\2\0\0\0"s + fGrande(intNumero, 2) + fGrande(0, 2) + strTipo + '\0');
    };
    const std::string strItem = fGrande(6) + "Exif\0\0"s + strExif;
    const auto fMeta = [&](std::uint64_t lngBase) {
        std::string strIloc = fGrande(intVersion, 1) + "\0\0\0\x44\x40"s;
        strIloc += fGrande(2, intVersion == 2 ? 4 : 2);
        for (const unsigned intNumero : {1, 7}) {
            strIloc += fGrande(intNumero, intVersion == 2 ? 4 : 2);
            strIloc += intVersion > 0 ? fGrande(0, 2) : "";
            strIloc += fGrande(0, 2) + fGrande(intNumero == 7 ? lngBase : 3) + fGrande(1, 2);
            strIloc += fGrande(intNumero == 7 ? 10 : 0) + fGrande(strItem.size());
        }
        return fCaja("meta",
                     "\0\0\0\0"s + fCaja("hdlr", "xx") +
                         fCaja("iinf", "\0\0\0\0\0\2"s + fItem(1, "hvc1") + fItem(7, "Exif")) +
                         fCaja("iloc", strIloc));
    };
    const std::string strDelante = fCaja("ftyp", "heicxxxx");
    const std::size_t lngMeta = fMeta(0).size();
    return strDelante + fMeta(strDelante.size() + lngMeta + 8 - 10) + fCaja("mdat", strItem);
}

std::string fCr3(const std::string &strPrimera, const std::string &strExif)
{
    return fCaja("ftyp", "crx xxxx") +
           fCaja("moov", fCaja("uuid", std::string(16, 'u') + fCaja("CNCV", "v") +
                                           fCaja("CMT1", strPrimera) + fCaja("CMT2", strExif)));
}

std::string fRaf(const std::string &strJpeg)
{
    return "FUJIFILMCCD-RAW 0201"s + std::string(64, 'x') + fGrande(100) + fGrande(strJpeg.size()) +
           std::string(8, 'x') + strJpeg + "raw data";
}

/// With another number in the place of 42.
std::string fNumerado(std::string strTiff, std::string_view strCabeza)
{
    return strTiff.replace(0, strCabeza.size(), strCabeza);
}

/// Bytes in memory that nobody may ask for more of than there are.
class clsOrigenSevero final : public clsOrigen {
public:
    explicit clsOrigenSevero(std::string_view strBytes) : m_memoria(strBytes) {}
    [[nodiscard]] std::int64_t fTamano() const override { return m_memoria.fTamano(); }
    std::size_t fLeer(std::int64_t lngPos, char *chrDestino, std::size_t lngBytes) override
    {
        EXPECT_GE(lngPos, 0);
        EXPECT_LE(lngPos + static_cast<std::int64_t>(lngBytes), fTamano());
        return m_memoria.fLeer(lngPos, chrDestino, lngBytes);
    }

private:
    clsOrigenMemoria m_memoria;
};

struct clsFormato {
    const char *strNombre;
    std::string strBytes;
};

std::vector<clsFormato> fFormatos()
{
    const std::string strTiff = fDatos().fHacer();
    const std::string strMotorola = fDatos(Orden::MM).fHacer();
    return {
        {"a.png", fPng(strMotorola)},
        {"a.webp", fWebp(strTiff)},
        {"b.webp", fWebp("Exif\0\0"s + strTiff)},
        {"a.heic", fHeif(strMotorola, 0)},
        {"a.heif", fHeif(strTiff, 1)},
        {"a.avif", fHeif(strTiff, 2)},
        {"a.cr3", fCr3(clsTiff(Orden::II).fTexto(0x010F, "Canon\0"s).fHacer(),
                       clsTiff(Orden::II).fTexto(0x9003, "2019:07:14 18:03:22\0"s).fHacer())},
        {"a.raf", fRaf(fJpeg(fSegmentoExif(strTiff)))},
        {"a.orf", fNumerado(strTiff, "IIRO")},
        {"b.orf", fNumerado(strTiff, "IIRS")},
        {"c.orf", fNumerado(strMotorola, "MMOR")},
        {"a.rw2", fNumerado(strTiff, {"IIU\0", 4})},
        {"a.dng", strTiff},
        {"a.jpeg", fJpeg(fSegmentoExif(strTiff))},
    };
}

TEST(OrigenExif, FindsTheDataOfEveryFormat)
{
    const clsZona zona("UTC");
    const clsFecha datTomada = fLeerFecha("2019/07/14 18:03:22").value();
    const clsArbol arbol;
    for (const clsFormato &formato : fFormatos()) {
        SCOPED_TRACE(formato.strNombre);
        const std::string strRuta = arbol.fRuta(formato.strNombre);
        arbol.fCrear(formato.strNombre, formato.strBytes, fMomento(datTomada).value());
        const std::string strTexto = GetExifText(strRuta);
        EXPECT_NE(strTexto.find("Camera Make: Canon\r\n"), std::string::npos);
        EXPECT_NE(strTexto.find("Date Time Original: 14/07/2019 18:03:22\r\n"), std::string::npos);
        clsFile fichero;
        fichero.fCargar(strRuta);
        EXPECT_EQ(fichero.datExif(), datTomada);
        EXPECT_TRUE(fichero.bolFechaCorrecta());
        const clsFechasFichero fechas = fLeerFechas(strRuta, arbol.fRaiz());
        EXPECT_TRUE(fechas.bolCorrecta);
        ASSERT_FALSE(fechas.lstFuentes.empty());
        EXPECT_EQ(fechas.lstFuentes[0].fecha, datTomada);
    }
}

TEST(OrigenExif, LooksIntoNoFileOfTheUsualFormatsWhateverItHolds)
{
    const clsArbol arbol;
    for (const clsFormato &formato : fFormatos()) {
        const bool bolSiempre = formato.strBytes.starts_with("\xFF\xD8") ||
                                formato.strBytes.starts_with(std::string_view("II*\0", 4));
        for (const char *const strNombre : {"a.jpg", "a.mp4"}) {
            SCOPED_TRACE(std::string(formato.strNombre) + " as " + strNombre);
            arbol.fCrear(strNombre, formato.strBytes);
            clsTablaExif tabla;
            EXPECT_EQ(HasExifData(arbol.fRuta(strNombre), tabla), bolSiempre);
        }
    }
}

TEST(OrigenExif, TakesAnyBytes)
{
    for (const clsFormato &formato : fFormatos()) {
        for (std::size_t lngCorte = 0; lngCorte < formato.strBytes.size(); ++lngCorte) {
            // Cut there; and with nonsense there, as large as numbers get.
            std::string strRoto = formato.strBytes;
            strRoto.replace(lngCorte, 4, "\xFF\xFF\xFF\xFE");
            for (const std::string_view strBytes :
                 {std::string_view(formato.strBytes).substr(0, lngCorte),
                  std::string_view(strRoto)}) {
                clsOrigenSevero severo(strBytes);
                const auto dentro = fExifDentro(severo);
                clsTablaExif tabla;
                clsMarcas marcas;
                const std::string strMensaje =
                    ReadExifTable(dentro ? *dentro : severo, tabla, marcas);
                EXPECT_TRUE(strMensaje.empty() || tabla.lstFilas.empty());
            }
        }
    }
}

} // namespace
