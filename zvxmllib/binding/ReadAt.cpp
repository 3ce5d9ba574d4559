#include "zvxmllib/binding/ReadAt.h"

#include "zvxmllib/binding/Failures.h"

#include <utility>

namespace ZvXmlLib16 {

// The innermost element that has a path is the one that the caller sees. Around it only the base part goes
// on.
CZvException FailureOfElement(CXmlElement const& element, CZvException const& cause) {
    return cause.GetPath().empty() ? CZvException(WithPathOfElement(element.GetXPath(), cause))
                                   : CZvException(cause);
}

bool NoteFailure(CSerializationContext const& ctx, CZvException const& failure, std::string path,
                 CXmlElement const& owner) {
    if (!failure.GetPath().empty())
        path = failure.GetPath();
    // The root's own failure keeps its class.
    bool const isWhole = owner.GetParentElm() == nullptr && failure.GetPath().empty();
    std::exception_ptr const thrown =
        isWhole ? std::make_exception_ptr(WithPathOfElement(owner.GetXPath(), failure))
                : std::make_exception_ptr(FailureOfElement(owner, failure));
    return ctx.GetFailureNotes().Note(
        {std::move(path), failure.GetLine(), failure.GetColumn(), failure.GetFullMessage()}, thrown);
}

} // namespace ZvXmlLib16
