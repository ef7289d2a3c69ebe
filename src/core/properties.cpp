#include "core/header_dtc.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <utility>

namespace headerdtc {
namespace {

// The text at an index of a control: an item of a list, a flat cell of a grid.

template <class List>
const std::string& textAt(const List& list, int index) {
    return list.List(index);
}

const std::string& textAt(const Grid& grid, int index) {
    return grid.TextArray(index);
}

template <class List>
void setTextAt(List& list, int index, const std::string& text) {
    list.List(index, text);
}

void setTextAt(Grid& grid, int index, const std::string& text) {
    grid.TextArray(index, text);
}

}  // namespace

// A control as a row of the table names it.
#define HEADERDTC_IN_ZEKO(control) ZEKO.control
#define HEADERDTC_IN_EAI(control) EAI.control
#define HEADERDTC_IN_Shared(control) control

#define HEADERDTC_INDEXED_TEXT(name, family, control)            \
    std::string HeaderDTC::name(int index) const {               \
        return textAt(HEADERDTC_IN_##family(control), index);    \
    }                                                            \
    void HeaderDTC::name(int index, const std::string& value) {  \
        setTextAt(HEADERDTC_IN_##family(control), index, value); \
        PropertyChanged(#name);                                  \
    }

#define HEADERDTC_COUNT(name, family, control)             \
    int HeaderDTC::name() const {                          \
        return HEADERDTC_IN_##family(control).ListCount(); \
    }

#define HEADERDTC_ROW_COUNT(name, family, grid)          \
    int HeaderDTC::name() const {                        \
        return HEADERDTC_IN_##family(grid).Rows();       \
    }                                                    \
    void HeaderDTC::name(int rows) {                     \
        HEADERDTC_IN_##family(grid).Rows(toInt16(rows)); \
        PropertyChanged(#name);                          \
    }

#define HEADERDTC_TEXT(name, family, control)         \
    std::string HeaderDTC::name() const {             \
        return HEADERDTC_IN_##family(control).Text(); \
    }                                                 \
    void HeaderDTC::name(const std::string& value) {  \
        HEADERDTC_IN_##family(control).Text(value);   \
        PropertyChanged(#name);                       \
    }

#define HEADERDTC_SCRIPTS(name, member)                                      \
    const std::shared_ptr<ScriptDictionary>& HeaderDTC::name() const {       \
        return member;                                                       \
    }                                                                        \
    void HeaderDTC::name(std::shared_ptr<ScriptDictionary> scripts) {        \
        if (!scripts) throw RuntimeError(ErrorNumber::ObjectVariableNotSet); \
        member = std::move(scripts);                                         \
        PropertyChanged(#name);                                              \
    }

#define HEADERDTC_NUMBER(name, member) \
    int HeaderDTC::name() const {      \
        return member;                 \
    }                                  \
    void HeaderDTC::name(int number) { \
        member = toInt16(number);      \
        PropertyChanged(#name);        \
    }

#include "core/properties.def"

#undef HEADERDTC_IN_ZEKO
#undef HEADERDTC_IN_EAI
#undef HEADERDTC_IN_Shared

}  // namespace headerdtc
