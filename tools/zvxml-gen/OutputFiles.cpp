#include "OutputFiles.h"

#include "Errors.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

using ZvXmlLib16::schema::EmittedFile;

namespace zvxml {

namespace {

bool HasText(std::string const& path, std::string const& text) {
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        return false;
    std::ifstream stream(path, std::ios::binary);
    return stream &&
           std::string{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()} == text;
}

void WriteText(std::string const& path, std::string const& text) {
    errno = 0;
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream << text;
    stream.close();
    if (!stream)
        throw FileError(path, errno == 0 ? "cannot be written" : std::strerror(errno));
}

// Files that are to take the places of others, or to go.
class NewFiles {
public:
    NewFiles() = default;
    NewFiles(NewFiles const&) = delete;
    NewFiles& operator=(NewFiles const&) = delete;
    ~NewFiles() {
        std::error_code ignored;
        for (auto const& [path, target] : m_files)
            std::filesystem::remove(path, ignored);
        for (auto folder = m_folders.rbegin(); folder != m_folders.rend(); ++folder)
            std::filesystem::remove(*folder, ignored); // those that are empty
    }
    // Makes the folders on the way.
    void Add(std::string const& target, std::string const& text) {
        MakeFolder(std::filesystem::path(target).parent_path());
        AddInPlace(target, text);
    }
    void AddInPlace(std::string const& target, std::string const& text) {
        std::error_code ignored;
        if (std::filesystem::is_directory(target, ignored))
            throw FileError(target, "is a folder");
        m_files.emplace_back(target + ".new", target);
        WriteText(m_files.back().first, text);
    }
    void Place() {
        for (auto const& [path, target] : m_files) {
            std::error_code failure;
            std::filesystem::rename(path, target, failure);
            if (failure)
                throw FileError(target, failure.message());
        }
        m_files.clear();
        m_folders.clear();
    }

private:
    void MakeFolder(std::filesystem::path const& folder) {
        std::error_code failure;
        if (folder.empty() || std::filesystem::is_directory(folder, failure))
            return;
        MakeFolder(folder.parent_path());
        if (std::filesystem::create_directory(folder, failure))
            m_folders.push_back(folder);
        if (failure)
            throw FileError(folder.string(), failure.message());
    }

    std::vector<std::pair<std::string, std::string>> m_files;
    std::vector<std::filesystem::path> m_folders;
};

std::string EscapeForMake(std::string const& path) {
    std::string escaped;
    for (char const c : path) {
        if (c == ' ' || c == '#')
            escaped += '\\';
        if (c == '$')
            escaped += '$';
        escaped += c;
    }
    return escaped;
}

} // namespace

std::string InFolder(std::string const& folder, std::string const& name) {
    return folder == "." ? name : (std::filesystem::path(folder) / name).string();
}

void ReadNames(GeneratorOptions const& options, ZvXmlLib16::schema::NameTable& names,
               ZvXmlLib16::schema::Diagnostics& diagnostics) {
    std::error_code ignored;
    if (options.namesFile.empty() ||
        (options.locksNames && !std::filesystem::exists(options.namesFile, ignored)))
        return;
    std::ifstream stream(options.namesFile, std::ios::binary);
    std::string const text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream || std::filesystem::is_directory(options.namesFile, ignored))
        throw FileError(options.namesFile, "the table of names cannot be read");
    names.Read(options.namesFile, text, diagnostics);
}

void WriteFiles(std::vector<EmittedFile> const& files, std::string const& folder) {
    NewFiles changed;
    for (EmittedFile const& file : files) {
        std::string const path = InFolder(folder, file.name);
        if (HasText(path, file.text))
            continue;
        if (std::filesystem::path(file.name).is_absolute())
            changed.AddInPlace(path, file.text);
        else
            changed.Add(path, file.text);
    }
    changed.Place();
}

bool AreOnDisk(std::vector<EmittedFile> const& files, std::string const& folder) {
    bool areSame = true;
    for (EmittedFile const& file : files) {
        std::string const path = InFolder(folder, file.name);
        if (HasText(path, file.text))
            continue;
        std::fprintf(stderr, "zvxml-gen: %s differs\n", path.c_str());
        areSame = false;
    }
    return areSame;
}

std::string DependencyRule(std::string const& target, std::vector<std::string> const& inputs) {
    std::string text = EscapeForMake(target) + ":";
    for (std::string const& input : inputs)
        text += " \\\n  " + EscapeForMake(input);
    return text + "\n";
}

} // namespace zvxml
