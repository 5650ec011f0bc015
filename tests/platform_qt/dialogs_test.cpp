// Dialogs that a timer answers as a user would.

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "platform/qt/qt_dialogs.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/testing.h"

namespace vantrace {
namespace {

/// While a dialog waits, runs the work with it. A dialog that is still there afterwards is cancelled.
template <class Dialog>
class Answering {
  public:
    explicit Answering(std::function<void(Dialog&)> work) : m_work(std::move(work)) {
        QObject::connect(&m_timer, &QTimer::timeout, [this] { answer(); });
        m_timer.start(20);
    }
    ~Answering() { EXPECT_GT(seen, 0) << "no dialog came up"; }
    int seen = 0;

  private:
    void answer() {
        QPointer<QWidget> widget = QApplication::activeModalWidget();
        if (widget.isNull() || widget == m_last) return;
        m_last = widget;
        auto* const dialog = qobject_cast<Dialog*>(widget.data());
        if (dialog == nullptr) return;
        ++seen;
        m_work(*dialog);
        QTimer::singleShot(500, widget, [widget] { widget->close(); });
    }

    std::function<void(Dialog&)> m_work;
    QTimer m_timer;
    QPointer<QWidget> m_last;
};

QLabel* shownLabel(const QWidget& dialog, const QString& text) {
    for (QLabel* const label : dialog.findChildren<QLabel*>()) {
        if (label->text() == text) return label;
    }
    return nullptr;
}

void press(QWidget& dialog, Qt::Key key) {
    QTest::keyClick(&dialog, key);
}

class QtDialogsTest : public ::testing::Test {
  protected:
    TemporaryFolder folder;
    QtDialogs dialogs;
};

TEST_F(QtDialogsTest, AMessageShowsItsTextSignForSign) {
    const std::string text = "<b>5 &amp; 6</b> & <img src='x'>\nS\xC3\xA3o";
    Answering<QMessageBox> answer([&](QMessageBox& box) {
        QLabel* const label = shownLabel(box, QString::fromStdString(text));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Reset Settings"));
        EXPECT_EQ(box.buttons().size(), 1);
        press(box, Qt::Key_Return);
    });
    dialogs.message(text, "Reset Settings");
}

TEST_F(QtDialogsTest, OfALongTextTheStartIsShownThatFits) {
    const std::string unbroken = "Here it is : " + std::string(10'000'000, 'x');
    const std::string lines = [] {
        std::string text;
        for (int i = 0; i < 1'000'000; ++i) text += "\r\n";
        return text;
    }();
    for (const std::string& text : {unbroken, lines}) {
        Answering<QMessageBox> answer([&](QMessageBox& box) {
            EXPECT_TRUE(box.text().endsWith(QChar(0x2026)));
            EXPECT_TRUE(text.starts_with(box.text().chopped(1).toStdString()));
            EXPECT_GT(box.text().size(), 20);
            EXPECT_LT(box.height(), 768);
            press(box, Qt::Key_Return);
        });
        dialogs.message(text);
    }
}

TEST_F(QtDialogsTest, ATitleThatIsEmptyStaysBlank) {
    Answering<QDialog> answer([](QDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), QString(" ")) << "Qt would show the name of the program";
        press(dialog, Qt::Key_Escape);
    });
    dialogs.message("text");
    dialogs.question("text");
    dialogs.textInput("text", "", "");
    dialogs.fileToSave({});
    EXPECT_EQ(answer.seen, 4);
}

TEST_F(QtDialogsTest, AQuestionIsNoUntilTheUserSaysYes) {
    const auto answered = [&](const std::function<void(QMessageBox&)>& work) {
        Answering<QMessageBox> answer(work);
        return dialogs.question("Really?", "Question");
    };
    EXPECT_FALSE(answered([](QMessageBox& box) { press(box, Qt::Key_Escape); }));
    EXPECT_FALSE(answered([](QMessageBox& box) { press(box, Qt::Key_Return); })) << "No is the default";
    EXPECT_FALSE(answered([](QMessageBox& box) { box.close(); }));
    EXPECT_TRUE(answered([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); }));
}

TEST_F(QtDialogsTest, AnInputGivesTheLineAsTypedOrNothing) {
    const auto answered = [&](const std::function<void(QInputDialog&)>& work) {
        Answering<QInputDialog> answer(work);
        return dialogs.textInput("Name <i>of</i> Q&A", "Group", "proposed");
    };
    const auto typed = answered([](QInputDialog& dialog) {
        QLabel* const label = shownLabel(dialog, QStringLiteral("Name <i>of</i> Q&&A"));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        auto* const line = dialog.findChild<QLineEdit*>();
        EXPECT_EQ(label->buddy(), line) << "what a screen reader calls the line";
        EXPECT_EQ(line->text(), QStringLiteral("proposed"));
        EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Group"));
        line->setText(QString::fromUtf8(" Z\xC3\xBCrich "));
        press(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(typed, " Z\xC3\xBCrich ");
    const auto pasted = answered([](QInputDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(
            QString::fromUtf8("\n A\r\nB\xE2\x80\xA8"
                              "C\xC2\x85"
                              "D \xC3\xA9\xE2\x80\xA9\n"));
        press(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(pasted, " A  B C D \xC3\xA9") << "a line of a file is to hold it";
    const auto emptied = answered([](QInputDialog& dialog) {
        dialog.findChild<QLineEdit*>()->clear();
        press(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(emptied, "") << "an empty line is an answer";
    EXPECT_EQ(answered([](QInputDialog& dialog) { press(dialog, Qt::Key_Escape); }), std::nullopt);
}

TEST_F(QtDialogsTest, AFileToOpenIsAskedForWithItsKindAndAllFiles) {
    folder.write("S\xC3\xA3o <b>.txt", "");
    const std::filesystem::path file = folder.path() / "S\xC3\xA3o <b>.txt";
    const auto answered = [&](Qt::Key key) {
        Answering<QFileDialog> answer([key](QFileDialog& dialog) {
            EXPECT_EQ(dialog.nameFilters(),
                      QStringList({QStringLiteral("Text files (*.txt)"), QStringLiteral("All files (*)")}));
            EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Pictures"));
            press(dialog, key);
        });
        return dialogs.fileToOpen({"Pictures", file, "Text files", "*.txt"});
    };
    EXPECT_EQ(answered(Qt::Key_Return), file);
    EXPECT_EQ(answered(Qt::Key_Escape), std::nullopt);
}

TEST_F(QtDialogsTest, AFileToSaveIsOverwrittenOnlyAfterAYes) {
    folder.write("old.txt", "");
    const FileRequest request{"Save", folder.path() / "old.txt", "Text files", "*.txt"};
    int questions = 0;
    Answering<QDialog> answer([&](QDialog& dialog) {
        if (auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
            EXPECT_TRUE(box->text().startsWith(QStringLiteral("old.txt")));
            ++questions;
            box->button(questions == 1 ? QMessageBox::No : QMessageBox::Yes)->click();
            return;
        }
        press(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.fileToSave(request), request.start);
    EXPECT_EQ(questions, 2) << "after a No the dialog comes back";
}

TEST_F(QtDialogsTest, ANewFileGetsTheEndingOfItsKindWithoutAQuestion) {
    Answering<QFileDialog> answer([](QFileDialog& dialog) {
        dialog.findChild<QLineEdit*>()->setText(QStringLiteral("new"));
        press(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.fileToSave({"Save", folder.path(), "Text files", "*.txt"}), folder.path() / "new.txt");
}

TEST_F(QtDialogsTest, AFolderIsTheOneShown) {
    Answering<QFileDialog> answer([](QFileDialog& dialog) {
        EXPECT_TRUE(dialog.testOption(QFileDialog::ShowDirsOnly));
        press(dialog, Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.folder({"Folder", folder.path(), "", ""}), folder.path());
}

TEST_F(QtDialogsTest, AWindowThatGoesTakesItsDialogAlongAndThatIsACancel) {
    auto window = std::make_unique<QWidget>();
    window->show();
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    Answering<QInputDialog> answer([&](QInputDialog& dialog) {
        EXPECT_EQ(dialog.parentWidget(), window.get());
        QTimer::singleShot(0, [&] { window.reset(); });
    });
    EXPECT_EQ(dialogs.textInput("Name", "", "proposed"), std::nullopt);
    EXPECT_EQ(window, nullptr);
}

}  // namespace
}  // namespace vantrace
