#include "script_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InstallDirectoryTest : public ScriptsTest {
  protected:
    std::string GetInstallDir() { return dtc.procedures.GetInstallDir(); }
    std::string& stored = outside.registry.values[std::string(InstallDirValue)];
};

TEST_F(InstallDirectoryTest, IsInCapitalsWithOneBackslashAtItsEndAndReadAnew) {
    EXPECT_EQ(GetInstallDir(), R"(C:\SITES\MAIN\)");
    stored = R"(d:\größe\)";
    EXPECT_EQ(GetInstallDir(), R"(D:\GRÖßE\)");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(InstallDirectoryTest, EveryFailingCallSaysSoAndGivesAnEmptyPath) {
    stored.clear();
    EXPECT_EQ(GetInstallDir(), "");
    outside.registry.values.clear();
    EXPECT_EQ(GetInstallDir(), "");
    const std::string message =
        R"(Can not find REGKEY 'HKLM\SOFTWARE\Zarvik\Zarvik Velmora\InstallDir')";
    EXPECT_THAT(messages(), ElementsAre(message, message));
}

}  // namespace
}  // namespace headerdtc
