#include "controls_fixture.h"
#include "platform/utf8.h"

namespace headerdtc::text_box_test {

class TextBoxTest : public ControlsTest {
  protected:
    TextBoxTest() { events.listenTo(surface); }
    // The text with the caret or the ends of the selection: "a|bc|d".
    static std::string shown(const TextBox& box) {
        std::string text = box.Text();
        text.insert(utf8::offset(text, box.SelStart() + box.SelLength()), "|");
        if (box.SelLength() > 0) text.insert(utf8::offset(text, box.SelStart()), "|");
        return text;
    }
    TextBox box{surface, "Box"};
    TextBox lines{surface, "Lines", TextBox::Lines::Multiple};
};

TEST_F(TextBoxTest, AssigningAnotherTextRaisesChangeAndMovesTheCaretToTheStart) {
    box.Text("abc");
    box.SelStart(2);
    box.Text("abc");
    EXPECT_EQ(events.take(), "Box.Change");
    EXPECT_EQ(shown(box), "ab|c");
    box.Text("xyz");
    EXPECT_EQ(shown(box), "|xyz");
}

TEST_F(TextBoxTest, PositionsCountCharactersAndEndWithTheText) {
    box.Text("größe€😀!");
    box.SelStart(99);
    EXPECT_EQ(box.SelStart(), 8);
    box.SelStart(2);
    box.SelLength(99);
    EXPECT_EQ(numberOf([&] { box.SelStart(-1); }), 380);
    EXPECT_EQ(numberOf([&] { box.SelLength(-1); }), 380);
    EXPECT_EQ(box.SelStart(), 2);
    EXPECT_EQ(box.SelLength(), 6);
}

TEST_F(TextBoxTest, TypingReplacesTheContentAndTakesTheFocus) {
    EXPECT_EQ(eventsOf([&] { box.type("größe"); }), "Box.GotFocus, Box.Change");
    EXPECT_EQ(shown(box), "größe|");
    EXPECT_EQ(eventsOf([&] { box.type("größe"); }), "");
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
    press(box, U'a', U'\u00F6', U'\U0001F600');
    press(box, Left, Backspace);
    EXPECT_EQ(shown(box), "a|😀");
    press(box, Delete, Delete);
    EXPECT_EQ(shown(box), "a|");
    press(box, Left, Left, Backspace);
    EXPECT_EQ(shown(box), "|a");
    press(box, Right, Right, Enter);
    EXPECT_EQ(shown(box), "a|");
    press(box, Backspace);
    EXPECT_EQ(shown(box), "|");
    press(lines, U'a', U'b', Left, Enter);
    EXPECT_EQ(lines.Text(), "a\r\nb") << "Enter breaks a line only where there are lines";
}

TEST_F(TextBoxTest, ArrowsLeaveASelectionAtItsEndsAndACharacterReplacesIt) {
    box.Text("abcdef");
    const auto select = [&] {
        box.SelStart(1);
        box.SelLength(3);
    };
    select();
    press(box, Right);
    EXPECT_EQ(shown(box), "abcd|ef");
    select();
    press(box, Left);
    EXPECT_EQ(shown(box), "a|bcdef");
    select();
    press(box, U'x');
    EXPECT_EQ(shown(box), "ax|ef");
}

TEST_F(TextBoxTest, ALockedBoxLetsOnlyTheCaretMove) {
    box.Text("ab");
    box.Locked(true);
    press(box, U'x', Right, Delete, Backspace);
    EXPECT_EQ(shown(box), "a|b");
}

TEST_F(TextBoxTest, AKeyRaisesKeyDownThenKeyPressThenChange) {
    Key capital = Key::of(U'a');
    capital.shift = true;
    box.press(capital);
    EXPECT_EQ(events.take(), "Box.GotFocus, Box.KeyDown 65 1, Box.KeyPress 97, Box.Change");
    EXPECT_EQ(eventsOf([&] { press(box, Delete, Enter); }),
              "Box.KeyDown 46 0, Box.KeyDown 13 0, Box.KeyPress 13");
    // Characters whose codes are those of Delete and the arrows.
    EXPECT_EQ(eventsOf([&] { press(box, U'.', U'&'); }),
              "Box.KeyDown 0 0, Box.KeyPress 46, Box.Change, Box.KeyDown 0 0, Box.KeyPress 38, "
              "Box.Change");
    EXPECT_EQ(box.Text(), "a.&");
}

TEST_F(TextBoxTest, AHandlerMaySwallowAKeyReplaceItOrMoveTheFocusOn) {
    auto handler = box.KeyPress.subscribe([](int& code) { code = code == 'x' ? 0 : 'y'; });
    press(box, U'x', U'a');
    EXPECT_EQ(box.Text(), "y");
    handler = box.KeyDown.subscribe([&](int, int) { lines.SetFocus(); });
    EXPECT_EQ(eventsOf([&] { press(box, U'b'); }),
              "Box.KeyDown 66 0, Box.LostFocus, Lines.GotFocus, Box.KeyPress 98");
    EXPECT_EQ(box.Text() + lines.Text(), "y");
}

TEST_F(TextBoxTest, AWindowThatEditsByItselfReportsWhatCameOfIt) {
    box.SetFocus();
    EXPECT_TRUE(box.keyDown(Key::of(U'a')));
    EXPECT_TRUE(box.keyPress(Key::of(U'a')));
    EXPECT_EQ(eventsOf([&] { box.edited("größe", 7, 1); }), "Box.Change");
    EXPECT_EQ(shown(box), "größe|");
    const auto handler = box.KeyPress.subscribe([](int& code) { code = 0; });
    EXPECT_FALSE(box.keyPress(Key::of(U'a')));
    EXPECT_TRUE(box.keyPress(Key::of(Left)));
}

}  // namespace headerdtc::text_box_test
