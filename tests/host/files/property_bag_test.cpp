#include "host/page/text_property_bag.h"
#include "support/prologue.h"

namespace headerdtc::property_bag_test {

TEST(CollectingPropertyBag, LeavesOutWhatEqualsItsDefaultInTypeAndValue) {
    CollectingPropertyBag bag;
    bag.WriteProperty("Flag", true, false);
    bag.WriteProperty("Off", false, true);
    bag.WriteProperty("Same", false, false);
    bag.WriteProperty("Count", std::int16_t{0}, std::int16_t{0});
    bag.WriteProperty("NrOf", std::int16_t{0}, std::string("0"));
    bag.WriteProperty("Negative", std::int16_t{-32768}, std::int16_t{0});
    bag.WriteProperty("Name", std::string("Orders"), std::string());
    bag.WriteProperty("Empty", std::string(), std::string("0"));
    EXPECT_THAT(bag.asStored(),
                ElementsAre(Pair("Flag", "-1"), Pair("Off", "0"), Pair("NrOf", "0"),
                            Pair("Negative", "-32768"), Pair("Name", "Orders"), Pair("Empty", "")));
    EXPECT_EQ(bag.written()[2].second, PropertyValue(std::int16_t{0}));
    EXPECT_EQ(bag.ReadProperty("Flag", false), PropertyValue(false));
}

TEST(StoredPropertyBag, GivesTextOrTheDefault) {
    const StoredProperties stored = {{"Count", "7"}, {"Empty", ""}};
    StoredPropertyBag bag(stored);
    EXPECT_EQ(bag.ReadProperty("Count", std::int16_t{1}), PropertyValue(std::string("7")));
    EXPECT_EQ(bag.ReadProperty("Empty", std::string("x")), PropertyValue(std::string()));
    EXPECT_EQ(bag.ReadProperty("count", std::int16_t{1}), PropertyValue(std::int16_t{1}));
}

}  // namespace headerdtc::property_bag_test
