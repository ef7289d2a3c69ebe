#pragma once

#include "core/header_dtc.h"
#include "host/generation/page_generation.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/preview/preview_pane.h"
#include "qt/editor/site/site_view.h"
#include "qt/editor/source/source_view.h"
#include "qt/editor/window/main_window.h"
#include "qt/editor/window/message_model.h"
#include "qt/editor/window/opener.h"
#include "qt/editor/workspace/notice_bar.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_tabs.h"
#include "qt/surface/control_surface.h"
#include "support/prologue.h"
#include "support/temp_site.h"

#include <QTest>
#include <QtWidgets>

namespace headerdtc::qt {

// The editor's window over a small site, and the person in front of it.
class WindowTest : public ::testing::Test {
  protected:
    using Site = testing::TempSite;
    static constexpr int Patience = 60'000;  // milliseconds: a machine may have other things to do

    WindowTest() { openWindow(); }
    ~WindowTest() override {
        // Whatever a test leaves changed is not asked about.
        answerDialogs([](QWidget& dialog) { press(dialog, "Discard"); });
        window->close();
        window.reset();
    }

    void openWindow() {
        window = std::make_unique<MainWindow>(
            MainWindow::Options{.configuration = {}, .recoveryFolder = site / "recovery"});
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get(), Patience));
    }

    // ---- pages -------------------------------------------------------------------------------
    static std::string ordersPage() {
        return "caf\xE9\n" + Site::page(Site::ordersParams(), Site::ordersText());
    }
    PageEditor& open(const std::string& name, const std::string& bytes) {
        site.write(name, bytes);
        window->opener().openPage(site / name);
        settle();
        PageEditor* editor = window->tabs().current();
        EXPECT_NE(nullptr, editor);
        return *editor;
    }
    GeneratedPage check(const std::string& name) {
        Sites sites;
        return generatePage(site / name, sites, LossGuard::RefuseLosses);
    }
    static HeaderDTC& dtc(PageEditor& editor) { return editor.controls().live()->dtc(); }

    // ---- the person --------------------------------------------------------------------------
    static void settle() {
        for (int i = 0; i < 5; ++i)
            QApplication::processEvents();
    }
    // Until something is so, as a person waits who watches.
    static bool eventually(const std::function<bool()>& condition) {
        return QTest::qWaitFor(condition, Patience);
    }
    // An answer is the button that is pressed in the dialogs that come.
    void command(Command which, const char* answer = nullptr) {
        if (answer) answerDialogs([answer](QWidget& dialog) { press(dialog, answer); });
        window->commands()[which]->trigger();
        settle();
    }
    static void toggleExtraFilters(PageEditor& editor) {
        auto* box = editor.findChild<QCheckBox*>("EnableExtraFiltersCheck");
        ASSERT_NE(nullptr, box);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    }
    // Changes a property, which the page takes over a moment later.
    static void change(PageEditor& editor) {
        toggleExtraFilters(editor);
        EXPECT_TRUE(eventually([&] { return editor.page().isModified(); }));
    }
    // Presses the button that shows a text, whatever its mnemonic.
    static void press(QWidget& parent, const QString& text) {
        for (auto* button : parent.findChildren<QAbstractButton*>()) {
            if (button->text().remove(QLatin1Char('&')) == text) return button->click();
        }
        ADD_FAILURE() << "no button " << text.toStdString();
    }
    // What is done in the next dialogs that open; the texts of all their labels are kept.
    void answerDialogs(std::function<void(QWidget&)> answer) {
        answer_ = std::move(answer);
        connection_ = QObject::connect(&watch_, &QTimer::timeout, [this] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (!dialog || dialog == answered_) return;
            answered_ = dialog;
            for (const auto* label : dialog->findChildren<QLabel*>())
                said += label->text().toStdString() + '\n';
            // Apart from the timer, which has to go on when the answer opens a dialog itself.
            QTimer::singleShot(0, dialog, [this, dialog] {
                answer_(*dialog);
                answered_ = nullptr;
            });
        });
        watch_.start(20);
    }
    std::vector<std::string> messages() {
        std::vector<std::string> texts;
        for (int row = 0; row < window->messages().rowCount(); ++row)
            texts.push_back(window->messages().message(row).text.toStdString());
        return texts;
    }

    Site site;
    std::unique_ptr<MainWindow> window;
    std::string said;  // by dialogs

  private:
    std::function<void(QWidget&)> answer_;
    QMetaObject::Connection connection_;
    QPointer<QWidget> answered_;
    QTimer watch_;
};

}  // namespace headerdtc::qt
