#pragma once

class QLineEdit;

namespace headerdtc::qt {

// The selection of a line edit in characters, as the models count: Qt counts UTF-16 units. With
// nothing selected the start is where the cursor stands.
struct LineSelection {
    int start = 0;
    int length = 0;

    static LineSelection of(const QLineEdit& edit);
    void applyTo(QLineEdit& edit) const;
    bool operator==(const LineSelection&) const = default;
};

}  // namespace headerdtc::qt
