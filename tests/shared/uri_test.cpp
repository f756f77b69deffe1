#include "shared/uri.h"

#include <gtest/gtest.h>

namespace {

TEST(Uri, EscapesTheSameBytesAsFileManagersDo)
{
    struct clsCaso {
        std::string strRuta, strUri;
    };
    // The right-hand side is what g_filename_to_uri of GLib 2.74 gives.
    const clsCaso lstCasos[] = {
        {"/", "file:///"},
        {"/AZaz09-_.!~*'()/&=+$,:@", "file:///AZaz09-_.!~*'()/&=+$,:@"},
        {"/ \"#%;<>?[\\]^`{|}", "file:///%20%22%23%25%3B%3C%3E%3F%5B%5C%5D%5E%60%7B%7C%7D"},
        {"/C\xc3\xa1"
         "diz/\xff\x01\x7f\n",
         "file:///C%C3%A1diz/%FF%01%7F%0A"},
        {"/a//./../b", "file:///a//./../b"},
    };
    for (const clsCaso &caso : lstCasos) {
        EXPECT_EQ(fUriDeRuta(caso.strRuta), caso.strUri);
    }
}

} // namespace
