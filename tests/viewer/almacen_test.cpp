#include "viewer/almacen.h"

#include "soporte/eventos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using Textos = std::vector<std::string>;

struct clsTexto {
    std::string strTexto;
    [[nodiscard]] std::int64_t fBytes() const { return static_cast<std::int64_t>(strTexto.size()); }
};
using clsAlmacenTextos = clsAlmacen<clsTexto>;

/// A store of 10 bytes and three entries, which makes each text of itself, on one thread.
class Almacen : public testing::Test {
protected:
    void fEncargar(const Textos &lstTextos)
    {
        std::vector<clsAlmacenTextos::clsEncargo> lstEncargos;
        for (const std::string &strTexto : lstTextos) {
            lstEncargos.push_back({strTexto, fPieza(strTexto)});
        }
        almacen.fEncargar(std::move(lstEncargos));
    }
    /// "!" hangs, "?" is not kept, "lenta" takes two steps, and so does what begins with "~", but
    /// there is something of it at once, and for the rest it comes a turn later; the second step of
    /// "~!" hangs.
    clsAlmacenTextos::clsPieza fPieza(const std::string &strTexto)
    {
        return [strTexto, atasco = atasco](const clsAnulado & /*anulado*/) {
            if (strTexto == "!") {
                atasco->fEsperar();
            }
            clsAlmacenTextos::clsHecho hecho{{strTexto}, strTexto != "?"};
            if (strTexto == "lenta") {
                hecho = {{"aun no"}, false};
                hecho.fSigue = [](const clsAnulado & /*anulado*/) {
                    return clsAlmacenTextos::clsHecho{{"al fin"}};
                };
            }
            if (strTexto.starts_with('~')) {
                hecho = {{"~"}};
                hecho.intMas = 1;
                hecho.fSigue = [=](const clsAnulado & /*anulado*/) {
                    if (strTexto == "~!") {
                        atasco->fEsperar();
                    }
                    return clsAlmacenTextos::clsHecho{{strTexto}};
                };
            }
            return hecho;
        };
    }
    /// Lets answers come until so many have.
    void fLlegan(std::size_t lngCuantas)
    {
        while (lstLlegadas.size() < lngCuantas) {
            ASSERT_TRUE(eventos.fAtender());
        }
    }
    static std::string fTexto(const clsTexto *texto) { return texto ? texto->strTexto : "-"; }
    std::string fTomado(const std::string &strClave) { return fTexto(almacen.fTomar(strClave)); }
    std::string fGuardado(const std::string &strClave)
    {
        return fTexto(almacen.fGuardado(strClave));
    }

    const Puerta atasco = std::make_shared<clsPuerta>();
    clsEventos eventos;
    Textos lstLlegadas;
    clsAlmacenTextos almacen{
        {.lngBytes = 10,
         .lngEntradas = 3,
         .intHilos = 1,
         .fAvisar = eventos.fAviso(),
         .fLlegada = [this](const std::string &strClave) { lstLlegadas.push_back(strClave); }}};
};

TEST_F(Almacen, TellsWhatCameOfWhichOrderAndKeepsIt)
{
    fEncargar({"b", "a", "b", "?"});
    EXPECT_EQ(fTomado("a"), "-");
    fLlegan(3);
    EXPECT_EQ(lstLlegadas, Textos({"b", "a", "?"}));
    EXPECT_EQ(fTomado("a"), "a");
    EXPECT_EQ(fTomado("?"), "?");
    almacen.fEncargar({});
    EXPECT_EQ(fTomado("a"), "-") << "it is not ordered any more";
    EXPECT_EQ(fGuardado("a"), "a");
    EXPECT_EQ(fGuardado("?"), "-");
}

TEST_F(Almacen, DropsWhatIsNotWantedAndGoesOnWithWhatIsUnderWay)
{
    fEncargar({"!", "a", "b"});
    ASSERT_TRUE(atasco->fParados(1));
    fEncargar({"b", "!"});
    atasco->fAbrir();
    fLlegan(2);
    EXPECT_EQ(lstLlegadas, Textos({"!", "b"}));
    fEncargar({"b"});
    fEncargar({"c"}); // what was begun of the other is dropped
    fLlegan(3);
    EXPECT_EQ(lstLlegadas.back(), "c");
}

TEST_F(Almacen, MakesAnewWhatWasMadeUnlessItIsToStayAsItIs)
{
    fEncargar({"a"});
    fLlegan(1);
    fEncargar({"a"});
    EXPECT_EQ(fTomado("a"), "-");
    fLlegan(2);
    EXPECT_EQ(fTomado("a"), "a");
    almacen.fEncargar({{"a", nullptr}});
    EXPECT_EQ(fTomado("a"), "a");
    EXPECT_TRUE(eventos.fVacia());
}

TEST_F(Almacen, TakesASecondStepForWhatIsSlow)
{
    fEncargar({"lenta"});
    fLlegan(1);
    EXPECT_EQ(fTomado("lenta"), "aun no");
    fLlegan(2);
    EXPECT_EQ(fTomado("lenta"), "al fin");
    EXPECT_EQ(fGuardado("lenta"), "al fin");
}

TEST_F(Almacen, IsWaitedForWithoutItsNotices)
{
    EXPECT_FALSE(almacen.fEsperar("a", lngDeSobra)) << "not ordered";
    fEncargar({"b", "lenta", "!"});
    EXPECT_TRUE(almacen.fEsperar("lenta", lngDeSobra));
    EXPECT_EQ(fTomado("b") + fTomado("lenta"), "baun no");
    EXPECT_TRUE(almacen.fEsperar("lenta", lngDeSobra)) << "its second step";
    EXPECT_EQ(fTomado("lenta"), "al fin");
    EXPECT_FALSE(almacen.fEsperar("lenta", lngDeSobra)) << "nothing is to come";
    EXPECT_FALSE(almacen.fEsperar("!", std::chrono::milliseconds(1))) << "it hangs";
    atasco->fAbrir();
}

TEST_F(Almacen, HasWhatThereIsAtOnceAndTheRestByTurns)
{
    fEncargar({"~!"});
    fLlegan(1);
    ASSERT_TRUE(atasco->fParados(1));
    almacen.fEncargar({{"~!", fPieza("~!"), 0}, {"~b", fPieza("~b"), 2}, {"~a", fPieza("~a"), 0}});
    fLlegan(3);
    EXPECT_EQ(fTomado("~a") + fGuardado("~a") + fTomado("~b"), "~~~");
    // What was the page to come is shown now.
    almacen.fEncargar({{"~!", fPieza("~!"), 0}, {"~a", fPieza("~a"), 2}, {"~b", fPieza("~b"), 0}});
    EXPECT_EQ(fTomado("~a") + fTomado("~b"), "~~") << "it is not made anew";
    atasco->fAbrir();
    fLlegan(6);
    EXPECT_EQ(Textos(lstLlegadas.begin() + 3, lstLlegadas.end()), Textos({"~!", "~b", "~a"}));
    EXPECT_EQ(fTomado("~a"), "~a");
}

TEST_F(Almacen, LetsWhatLacksEverythingComeBeforeTheRest)
{
    fEncargar({"~!"});
    fLlegan(1);
    ASSERT_TRUE(atasco->fParados(1));
    fEncargar({"~!", "~a", "lenta"});
    fLlegan(3);
    atasco->fAbrir();
    fLlegan(6);
    EXPECT_EQ(Textos(lstLlegadas.begin() + 3, lstLlegadas.end()), Textos({"~!", "lenta", "~a"}));
}

TEST_F(Almacen, ForgetsWhatWasNotUsedForLongestButNothingThatIsWanted)
{
    fEncargar({"aaaa", "bbbb"});
    fLlegan(2);
    EXPECT_EQ(fGuardado("aaaa"), "aaaa"); // used
    fEncargar({"cccc"});
    fLlegan(3);
    EXPECT_EQ(fGuardado("bbbb"), "-");
    EXPECT_EQ(fGuardado("aaaa"), "aaaa");
    fEncargar({"dddd", "eeee", "ffff"});
    fLlegan(6);
    EXPECT_EQ(fTomado("dddd") + fTomado("eeee") + fTomado("ffff"), "ddddeeeeffff");
    fEncargar({"1", "2", "3", "4"});
    fLlegan(10);
    almacen.fEncargar({});
    fEncargar({"5"});
    fLlegan(11);
    EXPECT_EQ(fGuardado("2") + fGuardado("3") + fGuardado("4") + fGuardado("5"), "-345");
}

} // namespace
