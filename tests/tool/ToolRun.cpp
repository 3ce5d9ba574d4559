// Runs the tool in a scratch directory and compares the documents that it makes.
#include "tests/tool/ToolRun.h"

#include "tools/zvxml/TreeWalk.h"
#include "zvxmllib/ZvXmlLib.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>

using namespace ZvXmlLib16;
namespace fs = std::filesystem;

namespace {

std::string ReadWhole(fs::path const& file) {
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream) << file;
    std::ostringstream content;
    content << stream.rdbuf();
    return content.str();
}

void WriteWhole(fs::path const& file, std::string const& content) {
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    EXPECT_TRUE(stream.flush()) << file;
}

} // namespace

ScratchDirectory::ScratchDirectory() {
    std::random_device random; // other test programs may run at the same time
    do {
        m_path = fs::temp_directory_path() / ("zvxml-test-" + std::to_string(random()));
    } while (!fs::create_directory(m_path));
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

void ScratchDirectory::Write(std::string const& name, std::string const& content) const {
    WriteWhole(m_path / name, content);
}

std::string ScratchDirectory::Read(std::string const& name) const {
    return ReadWhole(m_path / name);
}

int ScratchDirectory::RunShell(std::string const& arguments, std::string const& output) const {
    std::string const command =
        "cd '" + m_path.string() + "' && '" ZV_TOOL "' " + arguments + " <.in >" + output + " 2>.err";
    int const status = std::system(command.c_str());
    EXPECT_TRUE(WIFEXITED(status)) << command;
    return WEXITSTATUS(status);
}

ToolResult ScratchDirectory::Run(std::string const& arguments, std::string const& input) const {
    Write(".in", input);
    int const exitCode = RunShell(arguments, ".out");
    return {exitCode, Read(".out"), Read(".err")};
}

ToolResult ScratchDirectory::RunInto(std::string const& file, std::string const& arguments) const {
    Write(".in", "");
    int const exitCode = RunShell(arguments, file);
    return {exitCode, "", Read(".err")};
}

std::vector<std::string> DescribeDocument(std::string const& file, Texts texts) {
    SetLocalCharEncoding(65001);
    CXmlDocument document;
    document.Load(file.c_str());
    std::vector<std::string> lines;
    for (zvxml::TreeWalk walk(document.GetDocumentElement()); walk.Current() != nullptr; walk.Advance()) {
        CXmlElement const& element = *walk.Current();
        std::string line =
            std::to_string(walk.Depth()) + " {" + element.GetNamespaceURI() + "}" + element.GetLocalName();
        for (CXmlAttribute const* attribute : element.GetAttributes())
            line += " {" + attribute->GetNamespaceURI() + "}" + attribute->GetLocalName() + "=" +
                    attribute->GetValue();
        if (texts != Texts::OfElementsWithoutChildren || element.GetFirstElement() == nullptr)
            line += ": " + element.GetText();
        if (texts == Texts::WithoutLineFeeds)
            line.erase(std::remove(line.begin(), line.end(), '\n'), line.end());
        lines.push_back(line);
    }
    return lines;
}
