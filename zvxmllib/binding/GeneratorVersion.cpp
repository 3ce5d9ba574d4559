// The generator's version, which all entry points check.
#include "zvxmllib/binding/GeneratorVersion.h"

#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/foundation/FormatString.h"
#include "zvxmllib/platform/ErrorBox.h"

namespace ZvXmlLib16 {

namespace {

std::atomic<std::int32_t> s_generatorMajor{0};
std::atomic<std::int32_t> s_generatorMinor{0};

bool IsGeneratorVersionRight() noexcept {
    return s_generatorMajor == kLibraryMajorVersion && s_generatorMinor == kLibraryMinorVersion;
}

void ShowVersionMismatch() {
    std::string const text = FormatString(
        "Please ensure your generated code is the same version as this library "
        "(Brindle Runtime: v%d.%d, Generator: v%d.%d).",
        kLibraryMajorVersion, kLibraryMinorVersion, s_generatorMajor.load(), s_generatorMinor.load());
    platform::ShowErrorBox("Version Mismatch Error", text.c_str());
}

} // namespace

void SetGeneratorVersion(std::int32_t major, std::int32_t minor) {
    s_generatorMajor = major;
    s_generatorMinor = minor;
}

namespace detail {

std::atomic<bool> g_isGeneratorVersionCompared{false};

void CheckGeneratorVersion() {
    if (IsGeneratorVersionRight())
        return;
    ShowVersionMismatch();
    FailWrongVersion(s_generatorMajor, s_generatorMinor);
}

void CompareGeneratorVersion() noexcept {
    if (g_isGeneratorVersionCompared.exchange(true) || IsGeneratorVersionRight())
        return;
    try {
        ShowVersionMismatch();
    } catch (...) {
        // No memory for the text; the entry points will report it again.
    }
}

} // namespace detail

} // namespace ZvXmlLib16
