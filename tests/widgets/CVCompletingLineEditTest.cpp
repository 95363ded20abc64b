#include "widgets/fields/CVCompletingLineEdit.h"

#include "kit/Printers.h"
#include "widgets/fields/CVCompletingComboBox.h"

#include <QInputMethodEvent>
#include <QTest>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

TEST(CVCompleteString, IsTheFirstItemThatBeginsWithTheTextInAnyCase) {
    const QStringList items{"Growth", "Groceries", "Food", "food"};
    EXPECT_EQ(CVCompleteString(items, "gro"), "Growth");
    EXPECT_EQ(CVCompleteString(items, "GROC"), "Groceries");
    EXPECT_EQ(CVCompleteString(items, "food"), "Food");
    EXPECT_EQ(CVCompleteString(items, "x"), "x");
    EXPECT_EQ(CVCompleteString(items, "food "), "food ");
    EXPECT_EQ(CVCompleteString({}, "x"), "x");
}

struct Stroke {
    Qt::Key key = Qt::Key_unknown;
    Qt::KeyboardModifiers modifiers;
    /// The letter that is typed; 0 where `key` is pressed.
    char letter = 0;
};

constexpr Stroke kUndo{Qt::Key_Z, Qt::ControlModifier};
constexpr Stroke kRedo{Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier};
constexpr Stroke kSelectAll{Qt::Key_A, Qt::ControlModifier};

Stroke letterStroke(char letter) {
    return {Qt::Key_unknown, {}, letter};
}

std::string nameOf(const Stroke& stroke) {
    return stroke.letter != 0 ? std::string{'\'', stroke.letter, ' '}
                              : (QKeySequence(stroke.modifiers | stroke.key).toString() + ' ').toStdString();
}

void press(QWidget& field, const Stroke& stroke) {
    if (stroke.letter != 0)
        QTest::keyClick(&field, stroke.letter);
    else
        QTest::keyClick(&field, stroke.key, stroke.modifiers);
}

/// The text with its selection in brackets and its cursor.
QString shown(const QLineEdit& field) {
    QString text = field.text();
    int cursor = field.cursorPosition();
    if (field.hasSelectedText()) {
        cursor += cursor > field.selectionStart() ? 2 : 0;
        text.insert(field.selectionEnd(), ']').insert(field.selectionStart(), '[');
    }
    return text.insert(cursor, '|');
}

/// A combo box and a plain line edit with the same text, all of it selected.
class CVCompletingLineEditTest : public testing::Test {
protected:
    void start(const QStringList& items, const QString& text) {
        mBox.setItems(items);
        mBox.setEditText(text);
        mPlain.setText(text);
        mBox.lineEdit()->selectAll();
        mPlain.selectAll();
    }

    void type(const QString& text) { QTest::keyClicks(&mBox, text); }
    void press(const Stroke& stroke) { ::press(mBox, stroke); }
    void press(Qt::Key key) { ::press(mBox, {key, {}}); }
    [[nodiscard]] QLineEdit& field() const { return *mBox.lineEdit(); }
    [[nodiscard]] QString shown() const { return ::shown(field()); }

    /// Undoes everything and redoes it; returns the text after all undos.
    [[nodiscard]] QString textBeforeAll() {
        const QString last = field().text();
        int undone = 0;
        for (; field().isUndoAvailable(); ++undone)
            press(kUndo);
        QString first = field().text();
        for (; undone > 0; --undone)
            press(kRedo);
        EXPECT_EQ(field().text(), last);
        return first;
    }

    CVCompletingComboBox mBox;
    QLineEdit mPlain;
};

TEST_F(CVCompletingLineEditTest, UndoBringsBackWhatWasTypedOver) {
    for (const QStringList& items : {QStringList{}, {"Garage", "Growth"}, {"Zedage"}, {"Zed"}, {"ZED"}}) {
        start(items, "Garage");
        type("Zed");
        press(kUndo);
        EXPECT_EQ(field().text(), "Garage") << items.join(',').toStdString();
        EXPECT_EQ(field().selectedText(), "Garage") << items.join(',').toStdString();
        press(kUndo);
        EXPECT_EQ(field().text(), "Garage") << items.join(',').toStdString();
    }
}

TEST_F(CVCompletingLineEditTest, UndoAndRedoAreThoseOfAPlainFieldWhereNothingIsCompleted) {
    std::vector<Stroke> strokes{kUndo, kUndo, kUndo, kRedo, kRedo, kSelectAll};
    for (const char letter : {'x', 'y', 'Z', ' ', '7'})
        strokes.insert(strokes.end(), 2, letterStroke(letter));
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_Right, Qt::Key_End}) {
        for (const Qt::KeyboardModifiers modifiers : {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier})
            strokes.push_back({key, modifiers});
    }
    for (const char key : {'C', 'X', 'V'})
        strokes.push_back({static_cast<Qt::Key>(key), Qt::ControlModifier});
    std::mt19937 random(7); // NOLINT(*-msc51-cpp): the same sequences every time
    for (int sequence = 0; sequence < 300; ++sequence) {
        start(sequence % 2 == 0 ? QStringList{} : QStringList{"Garage", "Market"}, sequence % 3 == 0 ? "" : "Zed");
        std::string log;
        for (int step = 0; step < 30; ++step) {
            const Stroke& stroke = strokes[random() % strokes.size()];
            ::press(mPlain, stroke);
            press(stroke);
            log += nameOf(stroke);
            ASSERT_EQ(shown(), ::shown(mPlain)) << log;
            ASSERT_EQ(field().isUndoAvailable(), mPlain.isUndoAvailable()) << log;
            ASSERT_EQ(field().isRedoAvailable(), mPlain.isRedoAvailable()) << log;
        }
    }
}

TEST_F(CVCompletingLineEditTest, WhatWasTypedAndCompletedIsOneEdit) {
    struct {
        const char* typed;
        const char* shown;
        const char* undone;
        const char* redone;
    } const rows[] = {
        {"g", "G|[rowth]", "[Garage]|", "Growth|"},
        {"groc", "Groc|[eries]", "[Garage]|", "Groceries|"},
        {"GROCERIES", "Groceries|", "[Garage]|", "Groceries|"},
        {"grow up", "grow up|", "[Garage]|", "grow up|"},
        {"groceries and more", "groceries and more|", "[Garage]|", "groceries and more|"},
    };
    for (const auto& row : rows) {
        start({"Growth", "Groceries"}, "Garage");
        type(row.typed);
        EXPECT_EQ(shown(), row.shown);
        press(kUndo);
        EXPECT_EQ(shown(), row.undone) << row.typed;
        EXPECT_FALSE(field().isUndoAvailable()) << row.typed;
        press(kRedo);
        EXPECT_EQ(shown(), row.redone) << row.typed;
        press(kUndo);
        EXPECT_EQ(shown(), row.undone) << row.typed;
    }
}

TEST_F(CVCompletingLineEditTest, ACompletionThatWasAcceptedIsUndoneWithItsLetters) {
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Right, Qt::Key_Return, Qt::Key_Home}) {
        start({"Growth"}, "Garage");
        type("g");
        press(key);
        EXPECT_EQ(field().text(), "Growth");
        press(kUndo);
        EXPECT_EQ(field().text(), "Garage") << key;
    }
}

TEST_F(CVCompletingLineEditTest, WhatIsAddedToAnAcceptedCompletionIsUndoneByItself) {
    start({"Growth"}, "Garage");
    type("gr");
    press(Qt::Key_End);
    type(" up");
    press(kUndo);
    EXPECT_EQ(shown(), "Growth|");
    press(kUndo);
    EXPECT_EQ(shown(), "[Garage]|");
}

TEST_F(CVCompletingLineEditTest, RefusingACompletionLeavesWhatWasTypedToUndo) {
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete}) {
        start({"Growth"}, "Garage");
        type("gr");
        press(key);
        EXPECT_EQ(shown(), "gr|");
        press(kUndo);
        EXPECT_EQ(shown(), "[Garage]|");
        press(kRedo);
        EXPECT_EQ(shown(), "gr|");
        press(Qt::Key_Backspace);
        EXPECT_EQ(shown(), "g|");
        press(kUndo);
        EXPECT_EQ(shown(), "gr|");
    }
}

TEST_F(CVCompletingLineEditTest, CompletingTheRestOfATextUndoesToWhatWasLeftOfIt) {
    for (const char* item : {"Garden", "GARDEN"}) {
        start({item}, "Garage");
        press(Qt::Key_End);
        for (int i = 0; i < 4; ++i)
            press(Qt::Key_Backspace);
        type("r");
        EXPECT_EQ(field().text(), item);
        EXPECT_EQ(field().selectedText(), QString(item).mid(3));
        type("d");
        EXPECT_EQ(field().text(), item);
        press(kUndo);
        EXPECT_EQ(field().text(), "Ga") << item;
        press(kUndo);
        EXPECT_EQ(field().text(), "Garage") << item;
    }
}

TEST_F(CVCompletingLineEditTest, WhatAnInputMethodCommitsIsCompletedAndUndoneAsWhatIsTyped) {
    start({"Growth"}, "Garage");
    for (const char* letter : {"g", "r"}) {
        QInputMethodEvent composed(letter, {});
        QCoreApplication::sendEvent(&mBox, &composed);
        QInputMethodEvent committed;
        committed.setCommitString(letter);
        QCoreApplication::sendEvent(&mBox, &committed);
    }
    EXPECT_EQ(shown(), "Gr|[owth]");
    type("e");
    EXPECT_EQ(shown(), "gre|");
    press(kUndo);
    EXPECT_EQ(shown(), "[Garage]|");
}

TEST_F(CVCompletingLineEditTest, UndoingAllBringsBackTheFirstTextAndRedoingAllTheLast) {
    // No stroke redoes or removes words: a plain line edit itself loses track of these.
    std::vector<Stroke> strokes{kUndo, kSelectAll};
    for (const char letter : {'g', 'r', 'o', 'G', 'R', 'c', 'x', ' '})
        strokes.insert(strokes.end(), 3, letterStroke(letter));
    for (const Qt::Key key : {Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left, Qt::Key_End})
        strokes.push_back({key, {}});
    std::mt19937 random(7); // NOLINT(*-msc51-cpp): the same sequences every time
    for (int sequence = 0; sequence < 400; ++sequence) {
        start({"Growth", "grocer", "Groceries"}, sequence % 2 == 0 ? "" : "Garage");
        const QString first = field().text();
        std::string log;
        for (int step = 0; step < 12; ++step) {
            const Stroke& stroke = strokes[random() % strokes.size()];
            press(stroke);
            log += nameOf(stroke);
        }
        ASSERT_EQ(textBeforeAll(), first) << log;
    }
}

} // namespace
