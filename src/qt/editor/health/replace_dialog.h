#pragma once

#include "qt/editor/health/field_offers.h"

#include <QDialog>
#include <memory>
#include <vector>

namespace Ui {
class ReplaceDialog;
}

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
    ~ReplaceDialog() override;

    const VanishedField& vanished() const;
    // Empty while none is chosen.
    std::string replacement() const;

  private:
    void fill();
    void filter();

    const std::vector<VanishedField>& vanished_;
    const FieldOffers& offers_;
    const StoredConfiguration& configuration_;
    std::unique_ptr<Ui::ReplaceDialog> ui_;
};

}  // namespace headerdtc::qt
