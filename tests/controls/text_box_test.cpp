#include "controls/utf8.h"
#include "controls_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TextBoxTest : public ControlsTest {
  protected:
    TextBoxTest() { events.listenTo(surface); }
    void press(std::initializer_list<Key::Kind> keys) {
        for (const Key::Kind key : keys)
            box.press(Key::of(key));
    }
    TextBox box{surface, "Box"};
    TextBox lines{surface, "Lines", TextBox::Lines::Multiple};
};

TEST_F(TextBoxTest, AssigningAnotherTextRaisesChange) {
    box.Text("abc");
    box.SelStart(2);
    box.Text("abc");
    EXPECT_THAT(events.take(), ElementsAre("Box.Change"));
    EXPECT_EQ(box.SelStart(), 2);
    box.Text("");
    EXPECT_EQ(box.SelStart(), 0);
}

TEST_F(TextBoxTest, PositionsCountCharactersAndEndWithTheText) {
    box.Text("größe€😀!");
    box.SelStart(99);
    EXPECT_EQ(box.SelStart(), 8);
    box.SelStart(2);
    box.SelLength(99);
    EXPECT_EQ(box.SelLength(), 6);
    EXPECT_EQ(errorOf([&] { box.SelStart(-1); }), 380);
    EXPECT_EQ(errorOf([&] { box.SelLength(-1); }), 380);
    EXPECT_EQ(box.SelStart(), 2);
    EXPECT_EQ(box.SelLength(), 6);
}

TEST_F(TextBoxTest, TypingReplacesTheContentAndTakesTheFocus) {
    box.type("größe");
    EXPECT_THAT(events.take(), ElementsAre("Box.GotFocus", "Box.Change"));
    EXPECT_EQ(box.SelStart(), 5);
    box.type("größe");
    EXPECT_THAT(events.take(), IsEmpty());
    lines.type("two\r\nlines");
    EXPECT_EQ(lines.Text(), "two\r\nlines");
}

TEST_F(TextBoxTest, ARefusedTypingLeavesTheFocusWhereItIs) {
    lines.Locked(true);
    EXPECT_TRUE(isRefused([&] { box.type("two\r\nlines"); }));
    EXPECT_TRUE(isRefused([&] { lines.type("x"); }));
    EXPECT_EQ(surface.ActiveControl(), nullptr);
    EXPECT_EQ(box.Text() + lines.Text(), "");
}

TEST_F(TextBoxTest, KeysEditAroundTheCaret) {
    using enum Key::Kind;
    for (const char32_t c : U"a\u00F6\U0001F600")
        if (c != 0) box.press(Key::of(c));
    press({Left, Backspace});
    EXPECT_EQ(box.Text(), "a😀");
    EXPECT_EQ(box.SelStart(), 1);
    press({Delete, Delete});
    EXPECT_EQ(box.Text(), "a");
    press({Left, Left, Backspace});
    EXPECT_EQ(box.Text(), "a");
    EXPECT_EQ(box.SelStart(), 0);
    press({Right, Right});
    EXPECT_EQ(box.SelStart(), 1);
}

TEST_F(TextBoxTest, ArrowsLeaveASelectionAtItsEndsAndACharacterReplacesIt) {
    box.Text("abcdef");
    box.SelStart(1);
    box.SelLength(3);
    press({Key::Kind::Right});
    EXPECT_EQ(box.SelStart(), 4);
    box.SelStart(1);
    box.SelLength(3);
    press({Key::Kind::Left});
    EXPECT_EQ(box.SelStart(), 1);
    box.SelLength(3);
    box.press(Key::of(U'x'));
    EXPECT_EQ(box.Text(), "axef");
}

TEST_F(TextBoxTest, EnterBreaksALineOnlyWhereThereAreLines) {
    box.Text("ab");
    box.press(Key::of(Key::Kind::Enter));
    EXPECT_EQ(box.Text(), "ab");
    lines.Text("ab");
    lines.press(Key::of(Key::Kind::Right));
    lines.press(Key::of(Key::Kind::Enter));
    EXPECT_EQ(lines.Text(), "a\r\nb");
}

TEST_F(TextBoxTest, ALockedBoxLetsOnlyTheCaretMove) {
    box.Text("ab");
    box.Locked(true);
    box.press(Key::of(U'x'));
    press({Key::Kind::Right, Key::Kind::Delete, Key::Kind::Backspace});
    EXPECT_EQ(box.Text(), "ab");
    EXPECT_EQ(box.SelStart(), 1);
}

TEST_F(TextBoxTest, AKeyRaisesKeyDownThenKeyPressThenChange) {
    Key capital = Key::of(U'a');
    capital.shift = true;
    box.press(capital);
    EXPECT_THAT(events.take(),
                ElementsAre("Box.GotFocus", "Box.KeyDown 65 1", "Box.KeyPress 97", "Box.Change"));
    press({Key::Kind::Delete, Key::Kind::Enter});
    EXPECT_THAT(events.take(),
                ElementsAre("Box.KeyDown 46 0", "Box.KeyDown 13 0", "Box.KeyPress 13"));
}

TEST_F(TextBoxTest, TypedCharactersDoNotPassForOtherKeys) {
    std::vector<int> codes;
    const auto handler = box.KeyDown.subscribe([&](int code, int) { codes.push_back(code); });
    for (const char32_t c : U".&('%")
        if (c != 0) box.press(Key::of(c));
    EXPECT_THAT(codes, ElementsAre(0, 0, 0, 0, 0));
    EXPECT_EQ(box.Text(), ".&('%");
}

TEST_F(TextBoxTest, AHandlerMaySwallowAKeyReplaceItOrMoveTheFocusOn) {
    auto handler = box.KeyPress.subscribe([](int& code) { code = code == 'x' ? 0 : 'y'; });
    box.press(Key::of(U'x'));
    box.press(Key::of(U'a'));
    EXPECT_EQ(box.Text(), "y");
    handler = box.KeyDown.subscribe([&](int, int) { lines.SetFocus(); });
    events.take();
    box.press(Key::of(U'b'));
    EXPECT_THAT(events.take(), ElementsAre("Box.KeyDown 66 0", "Box.LostFocus", "Lines.GotFocus",
                                           "Box.KeyPress 98"));
    EXPECT_EQ(box.Text() + lines.Text(), "y");
}

TEST_F(TextBoxTest, AWindowThatEditsByItselfReportsWhatCameOfIt) {
    box.SetFocus();
    EXPECT_TRUE(box.keyDown(Key::of(U'a')));
    EXPECT_TRUE(box.keyPress(Key::of(U'a')));
    events.take();
    box.edited("größe", 7, 1);
    EXPECT_THAT(events.take(), ElementsAre("Box.Change"));
    EXPECT_EQ(box.SelStart(), 5);
    EXPECT_EQ(box.SelLength(), 0);
    const auto handler = box.KeyPress.subscribe([](int& code) { code = 0; });
    EXPECT_FALSE(box.keyPress(Key::of(U'a')));
    EXPECT_TRUE(box.keyPress(Key::of(Key::Kind::Left)));
}

TEST(Utf8Test, CharactersGoThereAndBack) {
    for (const char32_t c : {U'A', U'\u007F', U'\u0080', U'\u07FF', U'\u0800', U'\uFFFD',
                             U'\U00010000', U'\U0010FFFF'})
        EXPECT_EQ(utf8::first(utf8::encode(c) + "x"), c);
    EXPECT_EQ(utf8::encode(0xD800), "\uFFFD");
    EXPECT_EQ(utf8::encode(0x110000), "\uFFFD");
    EXPECT_EQ(utf8::first(""), 0U);
    EXPECT_EQ(utf8::offset("aö", 2), 3U);
    EXPECT_EQ(utf8::length("\xF0\x9F"), 1) << "cut short";
}

}  // namespace
}  // namespace headerdtc
