#include "dates/panel.h"

#include <gtest/gtest.h>

namespace {

TEST(Panel, ShowsPositionFromOneAndTheDateDayFirstIfItReads)
{
    EXPECT_EQ(fTextoInfo1(0, 7), "1 de 7");
    EXPECT_EQ(fTextoInfo2("/f/a.jpg", "2009/07/14 18:03:22", "12 KB"),
              "/f/a.jpg      Fecha: 14/07/2009 18:03:22      Tama\u00F1o: 12 KB");
    EXPECT_EQ(fTextoInfo2("/f/a.jpg", "ayer", "12 KB"),
              "/f/a.jpg      Fecha: ayer      Tama\u00F1o: 12 KB");
}

} // namespace
