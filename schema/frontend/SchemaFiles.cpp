#include "schema/frontend/SchemaFiles.h"

#include "schema/frontend/Outline.h"

#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

namespace ZvXmlLib16::schema {

namespace {

namespace fs = std::filesystem;

constexpr unsigned kMostCatalogDepth = 20; // one within the other
constexpr std::size_t kMostCatalogs = 1000;
constexpr char const kCatalogNamespace[] = "urn:oasis:names:tc:entity:xmlns:xml:catalog";

int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    char const lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// %HH of a URI as octets.
std::string Unescape(std::string const& text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && HexValue(text[i + 1]) >= 0 &&
            HexValue(text[i + 2]) >= 0) {
            plain += static_cast<char>(HexValue(text[i + 1]) * 16 + HexValue(text[i + 2]));
            i += 2;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

bool HasScheme(std::string const& location) {
    std::size_t const colon = location.find(':');
    if (colon == std::string::npos || colon < 2 || colon > location.find('/'))
        return false;
    for (std::size_t i = 0; i < colon; ++i) {
        unsigned char const c = static_cast<unsigned char>(location[i]);
        if (std::isalnum(c) == 0 && c != '+' && c != '-' && c != '.')
            return false;
    }
    return true;
}

bool IsRegularFile(std::string const& path) {
    std::error_code failure;
    return fs::is_regular_file(fs::path(path), failure);
}

std::string InFolderOf(std::string const& base, std::string const& path) {
    return (fs::path(base).parent_path() / fs::path(path)).lexically_normal().string();
}

// The path that a location stands for; empty for one that is not of this machine.
std::string PathOf(std::string const& location, std::string const& base) {
    std::string path = location.substr(0, location.find('#'));
    if (path.compare(0, 5, "file:") == 0) {
        path.erase(0, 5);
        if (path.compare(0, 2, "//") == 0) {
            std::size_t const root = path.find('/', 2);
            path = root == std::string::npos ? std::string() : path.substr(root);
        }
        return Unescape(path);
    }
    if (path.empty() || HasScheme(path))
        return {};
    std::string const direct = InFolderOf(base, path);
    return IsRegularFile(direct) ? direct : InFolderOf(base, Unescape(path));
}

} // namespace

void SchemaFiles::Map(std::string from, std::string file) {
    m_mapped.emplace(std::move(from), std::move(file));
}

void SchemaFiles::AddCatalog(std::string const& file, Diagnostics& diagnostics) {
    AddCatalog(file, diagnostics, 0);
}

void SchemaFiles::AddCatalog(std::string const& file, Diagnostics& diagnostics, unsigned depth) {
    if (depth == kMostCatalogDepth || m_catalogFiles.size() == kMostCatalogs)
        return diagnostics.Error({}, "the catalogs nest too deeply, or are too many");
    if (!m_catalogFiles.insert(file).second)
        return;
    std::optional<std::string> const bytes = Read(file);
    if (!bytes)
        return diagnostics.Error({file}, "the catalog cannot be read");
    std::unique_ptr<OutlineNode> const root = ReadOutline(*bytes, file, diagnostics);
    if (root == nullptr)
        return;
    if (root->ns != kCatalogNamespace || root->name != "catalog")
        return diagnostics.Error({file, root->line, root->column}, "no OASIS XML catalog");
    std::vector<OutlineNode const*> pending{root.get()};
    while (!pending.empty()) {
        OutlineNode const& group = *pending.back();
        pending.pop_back();
        for (auto const& entry : group.children) {
            auto const target = [&](char const* attribute) { return PathOf(entry->Get(attribute), file); };
            if (entry->name == "group")
                pending.push_back(entry.get());
            else if (entry->name == "uri")
                m_catalog.emplace(entry->Get("name"), target("uri"));
            else if (entry->name == "system")
                m_catalog.emplace(entry->Get("systemId"), target("uri"));
            else if (entry->name == "public")
                m_catalog.emplace(entry->Get("publicId"), target("uri"));
            else if (entry->name == "rewriteURI")
                m_rewrites.emplace_back(entry->Get("uriStartString"),
                                        InFolderOf(file, entry->Get("rewritePrefix")));
            else if (entry->name == "rewriteSystem")
                m_rewrites.emplace_back(entry->Get("systemIdStartString"),
                                        InFolderOf(file, entry->Get("rewritePrefix")));
            else if (entry->name == "nextCatalog")
                AddCatalog(target("catalog"), diagnostics, depth + 1);
        }
    }
}

std::string const* SchemaFiles::FindMapped(std::string const& from) const {
    for (auto const* map : {&m_mapped, &m_catalog}) {
        auto const found = map->find(from);
        if (found != map->end())
            return &found->second;
    }
    return nullptr;
}

std::optional<std::string> SchemaFiles::Find(std::string const& ns, std::string const& location,
                                             std::string const& base) const {
    std::string const path = location.empty() ? std::string() : PathOf(location, base);
    for (std::string const* from : {&location, &path, &ns}) {
        std::string const* const mapped = from->empty() ? nullptr : FindMapped(*from);
        if (mapped != nullptr && IsRegularFile(*mapped))
            return *mapped;
    }
    std::pair<std::string, std::string> const* longest = nullptr;
    for (auto const& rewrite : m_rewrites) {
        if (location.compare(0, rewrite.first.size(), rewrite.first) == 0 &&
            (longest == nullptr || longest->first.size() < rewrite.first.size()))
            longest = &rewrite;
    }
    if (longest != nullptr) {
        std::string const rewritten = longest->second + location.substr(longest->first.size());
        if (IsRegularFile(rewritten))
            return rewritten;
    }
    if (!path.empty() && IsRegularFile(path))
        return path;
    return std::nullopt;
}

std::optional<std::string> SchemaFiles::Read(std::string const& file) {
    if (!IsRegularFile(file))
        return std::nullopt;
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return std::nullopt;
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (stream.bad())
        return std::nullopt;
    return bytes;
}

} // namespace ZvXmlLib16::schema
