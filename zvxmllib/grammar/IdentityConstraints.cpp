#include "zvxmllib/grammar/IdentityConstraints.h"
namespace ZvXmlLib16::grammar {
struct IdentityPaths::Paths {};
struct IdentityWalk::State {};
IdentityPaths::IdentityPaths(GrammarRows const& r): m_rows(r) { (void)m_rows; }
IdentityPaths::~IdentityPaths() = default;
IdentityWalk::IdentityWalk(IdentityPaths const&) {}
IdentityWalk::~IdentityWalk() = default;
bool IdentityWalk::IsActive() const noexcept { return false; }
bool IdentityWalk::WantsValue() const noexcept { return false; }
void IdentityWalk::EnterElement(std::string_view, std::string_view, Range) {}
void IdentityWalk::AddAttribute(std::string_view, std::string_view, SimpleValue const&) {}
void IdentityWalk::LeaveElement(SimpleValue const*, bool, std::vector<std::string>&) {}
}
