#include "platform/nearest_name.h"

#include <gtest/gtest.h>

namespace headerdtc {
namespace {

TEST(NearestName, IsTheOneThatMayHaveBeenMeant) {
    for (const auto& [written, meant] : {std::pair{"chek", "check"},
                                         {"GENERATE", "generate"},
                                         {"hwere", "where"},
                                         {"hsow", "show"},
                                         {"hello", ""},
                                         {"exit", "edit"},
                                         {"FLAGG", "FLAG"},
                                         {"remove", ""},
                                         {"x", ""},
                                         {"", ""}}) {
        NearestName nearest(written);
        for (const char* name : {"generate", "check", "where", "doctor", "new", "show", "edit",
                                 "FLAT", "FLAG", "FLAGS"})
            nearest.offer(name);
        EXPECT_EQ(nearest.found(), meant) << "for " << written;
    }
    EXPECT_EQ(NearestName("check").question(), "");
}

}  // namespace
}  // namespace headerdtc
