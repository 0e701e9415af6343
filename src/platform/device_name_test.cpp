#include "platform/device_name.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(DeviceName, IsOneInAnyCaseAndWhateverStandsBehindAPeriod)
{
    for (const char16_t* name :
         {u"CON", u"con", u"Prn", u"aux", u"NUL", u"nul.txt", u"con.tar.gz", u"nul.", u"aux ", u"aux .txt", u"COM1",
          u"com9.log", u"LPT3", u"lpt\u00B2", u"COM\u00B9.txt", u"conin$", u"CONOUT$"})
        EXPECT_TRUE(is_device_name(name));
}

TEST(DeviceName, WhatOnlyBeginsOrEndsLikeOneIsAName)
{
    for (const char16_t* name : {u"", u".", u".con", u"CONS", u"icon", u"con-1", u" con", u"COM", u"COM0", u"COM10",
                                 u"COMA", u"LPT", u"LPT\u2074", u"XOM1", u"nul_", u"a.con", u"conin"})
        EXPECT_FALSE(is_device_name(name));
}

} // namespace
} // namespace multirename
