#include "shared/formato_fecha.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

TEST(FormatoFecha, MustHaveDaysFirstWithSlashes)
{
    for (const char *const strDFmt : {"%d/%m/%Y", "%d/%m/%y", "dd/mm/yyyy", ""}) {
        EXPECT_TRUE(fFormatoFechaValido(strDFmt)) << strDFmt;
    }
    // Among them those of the United States, Sweden and, with dots, France and Germany.
    for (const char *const strDFmt : {"%m/%d/%Y", "%Y-%m-%d", "%d.%m.%Y", "%d-%m-%Y", "%e/%m/%Y",
                                      "%-d/%m/%Y", "%D", "%d/%m/%Y. ", "%d/%m/%Y%", "%d/%m/%Ey"}) {
        EXPECT_FALSE(fFormatoFechaValido(strDFmt)) << strDFmt;
    }
}

TEST(FormatoFecha, OfNeutralOrMissingLocalesIsNoSetting)
{
    for (const char *const strLocale : {"C", "POSIX", "C.UTF-8", "c.utf8", "xx_NADIE.UTF-8"}) {
        setenv("LC_ALL", strLocale, 1);
        EXPECT_EQ(fDFmtUsuario(), "") << strLocale;
    }
    unsetenv("LC_ALL");
}

} // namespace
