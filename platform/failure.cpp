#include "platform/failure.h"

#include <new>
#include <stdexcept>

namespace brindlewick {

std::u16string_view descriptionOf(FailureNumber number) noexcept {
    switch (number) {
    case FailureNumber::invalidProcedureCall:
        return u"Invalid procedure call or argument";
    case FailureNumber::overflow:
        return u"Overflow";
    case FailureNumber::outOfMemory:
        return u"Out of memory";
    case FailureNumber::subscriptOutOfRange:
        return u"Subscript out of range";
    case FailureNumber::typeMismatch:
        return u"Type mismatch";
    case FailureNumber::outOfStackSpace:
        return u"Out of stack space";
    case FailureNumber::fileNotFound:
        return u"File not found";
    case FailureNumber::deviceIoError:
        return u"Device I/O error";
    case FailureNumber::diskFull:
        return u"Disk full";
    case FailureNumber::permissionDenied:
        return u"Permission denied";
    case FailureNumber::pathNotFound:
        return u"Path not found";
    case FailureNumber::duplicateKey:
        return u"This key is already associated with an element of this collection";
    case FailureNumber::invalidPicture:
        return u"Invalid picture";
    }
    return u"";
}

FailureNumber currentFailure() noexcept {
    try {
        throw;
    } catch (const Failure& failure) {
        return failure.number();
    } catch (const std::bad_alloc&) {
        return FailureNumber::outOfMemory;
    } catch (const std::length_error&) {
        return FailureNumber::outOfMemory;
    } catch (...) {
        return FailureNumber::invalidProcedureCall;
    }
}

} // namespace brindlewick
