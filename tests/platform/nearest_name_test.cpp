#include "platform/nearest_name.h"

#include <gtest/gtest.h>

namespace headerdtc {
namespace {

std::string nearest(std::string_view written, std::initializer_list<std::string_view> names) {
    NearestName nearest(written);
    for (const std::string_view name : names)
        nearest.offer(name);
    return nearest.found();
}

TEST(NearestName, IsTheOneThatMayHaveBeenMeant) {
    const auto command = [](std::string_view written) {
        return nearest(written, {"generate", "check", "where", "doctor", "new", "show", "edit"});
    };
    EXPECT_EQ(command("chek"), "check");
    EXPECT_EQ(command("GENERATE"), "generate");
    EXPECT_EQ(command("hwere"), "where");
    EXPECT_EQ(command("exit"), "edit");
    EXPECT_EQ(command("remove"), "");
    EXPECT_EQ(command("x"), "");
    EXPECT_EQ(command(""), "");
    EXPECT_EQ(nearest("FLAGG", {"FLAT", "FLAG", "FLAGS"}), "FLAG");
    EXPECT_EQ(NearestName("check").question(), "");
}

}  // namespace
}  // namespace headerdtc
