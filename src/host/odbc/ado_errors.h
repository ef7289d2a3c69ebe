#pragma once

#include "platform/runtime_error.h"

namespace headerdtc {

// Failures of the ADO objects themselves.
inline RuntimeError objectIsClosed() {
    return {3704, "Operation is not allowed when the object is closed."};
}
inline RuntimeError objectIsOpen() {
    return {3705, "Operation is not allowed when the object is open."};
}
inline RuntimeError noCurrentRecord() {
    return {
        3021,
        "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
        "requires a current record."};
}
inline RuntimeError noSuchItem() {
    return {3265,
            "Item cannot be found in the collection corresponding to the requested name or "
            "ordinal."};
}

}  // namespace headerdtc
