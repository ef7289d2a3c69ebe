#pragma once

#include "qt/editor/health/field_offers.h"

#include <QDialog>
#include <vector>

class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QLabel;

namespace headerdtc::qt {

// Asks which field is to stand in the place of one that has vanished.
class ReplaceDialog : public QDialog {
    Q_OBJECT

  public:
    // There is at least one vanished field; `first` is the one that is asked about at the
    // beginning.
    ReplaceDialog(const std::vector<VanishedField>& vanished, std::size_t first,
                  const FieldOffers& offers, const StoredConfiguration& configuration,
                  QWidget* parent = nullptr);

    const VanishedField& vanished() const;
    // Empty while none is chosen.
    std::string replacement() const;

  private:
    void fill();
    void filter();

    const std::vector<VanishedField>& vanished_;
    const FieldOffers& offers_;
    const StoredConfiguration& configuration_;
    QComboBox* which_;
    QLabel* reason_;
    QLineEdit* filter_;
    QListWidget* choices_;
    QPushButton* replace_;
};

}  // namespace headerdtc::qt
