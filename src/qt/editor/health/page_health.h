#pragma once

#include "qt/editor/health/field_offers.h"

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc::qt {

class ControlPane;
class EditedPage;
class SurfaceMarks;

// Watches for fields of a page's controls that the catalogue no longer offers. They stay in the
// page, are marked, and can be replaced.
class PageHealth : public QObject {
    Q_OBJECT

  public:
    // Page and controls outlive this.
    PageHealth(EditedPage& page, ControlPane& controls, QObject* parent = nullptr);

    // Of the control that is shown.
    bool hasVanished() const { return !vanished_.empty(); }
    const std::vector<VanishedField>& vanished() const { return vanished_; }

    // To be called when the catalogue or the page may have changed.
    void judgeSoon() { soon_.start(); }

    // Asks for the field that stands in the place of one, or of any of those that have vanished,
    // and replaces it.
    void chooseReplacement(const std::optional<VanishedField>& which);
    // Replaces a field of the control that is shown, as one step: by what a person does where the
    // control offers the other field, in the page otherwise. Why it cannot be done; empty when it
    // was.
    QString replace(const VanishedField& vanished, const std::string& with);

  Q_SIGNALS:
    // Another set of fields has vanished from the control that is shown.
    void changed();

  private:
    void judge();
    void mark();
    void openMenu(const VanishedField& vanished, const QPoint& at);
    bool replaceByPerson(const VanishedField& vanished, const std::string& with);

    EditedPage& page_;
    ControlPane& controls_;
    FieldOffers offers_;
    QPointer<SurfaceMarks> marks_;  // of the surface that is shown
    std::vector<VanishedField> vanished_;
    StoredConfiguration configuration_;  // in which they were found
    QTimer soon_;
};

}  // namespace headerdtc::qt
