#include "repair/anchos.h"

#include <gtest/gtest.h>

namespace {

TEST(Anchos, GivesUpAlikeWhereThereIsLessRoom)
{
    struct clsCaso {
        const char *strFrase;
        int intSitio;
        std::vector<int> lstAnchos;
    };
    const std::vector<clsAncho> lstColumnas{{20, 20}, {200, 100}, {100, 50}, {300, 250}};
    for (const clsCaso &caso : {clsCaso{"just enough", 620, {20, 200, 100, 300}},
                                {"more: the last one takes it", 700, {20, 200, 100, 380}},
                                {"half of what can be given up", 520, {20, 150, 75, 275}},
                                {"the least of all", 420, {20, 100, 50, 250}},
                                {"less than that", 100, {20, 100, 50, 250}},
                                {"a pixel less", 619, {20, 199, 99, 301}}}) {
        SCOPED_TRACE(caso.strFrase);
        EXPECT_EQ(fAnchos(lstColumnas, caso.intSitio), caso.lstAnchos);
    }
    EXPECT_EQ(fAnchos({{10, 10}, {20, 20}}, 5), (std::vector<int>{10, 20}));
    EXPECT_TRUE(fAnchos({}, 100).empty());
}

} // namespace
