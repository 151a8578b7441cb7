// The project and workspace readers, on small project files written here:
// relative paths, paths with blanks, files that are missing, files listed
// twice, and files that are not projects at all.
#include "App_ProjectFiles.h"

#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using tw_test::TempDir;
using tw_test::writeBytes;

// `text` as the file at `path`, with the directories on its way.
void put(const fs::path& path, const std::string& text)
{
    fs::create_directories(path.parent_path());
    writeBytes(path, text);
}

class ProjectFilesTest : public ::testing::Test {
protected:
    fs::path file(const std::string& name, const std::string& text = "int x;\n")
    {
        put(m_dir.path() / name, text);
        return m_dir.path() / name;
    }
    std::string path(const std::string& name) const { return (m_dir.path() / name).string(); }

    App::ProjectList read(const std::string& name)
    {
        App::ProjectList list;
        std::string error;
        EXPECT_TRUE(App::readProjectFile(path(name), list, error)) << error;
        return list;
    }
    std::string failure(const std::string& name)
    {
        App::ProjectList list;
        std::string error;
        EXPECT_FALSE(App::readProjectFile(path(name), list, error));
        return error;
    }

    TempDir m_dir;
};

// A Developer Studio project written for this test, with CR LF line ends.
std::string dspText(const std::vector<std::string>& sources)
{
    std::string text = "# Microsoft Developer Studio Project File - Name=\"demo\" - Package Owner=<4>\r\n"
                       "# Microsoft Developer Studio Generated Build File, Format Version 6.00\r\n"
                       "\r\nCFG=demo - Win32 Debug\r\n\r\n# Begin Project\r\n# Begin Target\r\n\r\n"
                       "# Begin Group \"Source Files\"\r\n\r\n";
    for (const std::string& source : sources)
        text += "# Begin Source File\r\n\r\nSOURCE=" + source + "\r\n# End Source File\r\n";
    return text + "# End Group\r\n# End Target\r\n# End Project\r\n";
}

TEST(ProjectKindTest, TheReaderIsChosenByName)
{
    EXPECT_EQ(App::projectKind("a/b.DSP"), App::ProjectKind::DSP);
    EXPECT_EQ(App::projectKind("w.dsw"), App::ProjectKind::DSW);
    EXPECT_EQ(App::projectKind("x.vcxproj"), App::ProjectKind::VCXPROJ);
    EXPECT_EQ(App::projectKind("all.sln"), App::ProjectKind::SLN);
    EXPECT_EQ(App::projectKind("build/compile_commands.json"), App::ProjectKind::COMPILE_COMMANDS);
    EXPECT_EQ(App::projectKind("Makefile"), App::ProjectKind::NONE);
    EXPECT_EQ(App::projectKind("x.vcxproj.filters"), App::ProjectKind::NONE);
    EXPECT_TRUE(App::isWorkspaceKind(App::ProjectKind::DSW));
    EXPECT_TRUE(App::isWorkspaceKind(App::ProjectKind::SLN));
    EXPECT_FALSE(App::isWorkspaceKind(App::ProjectKind::COMPILE_COMMANDS));
}

TEST_F(ProjectFilesTest, DspListsItsSourcesOnceEachBesideTheProject)
{
    file("proj/src/main.cpp");
    file("shared code/util one.cpp");
    file("proj/Res/App.rc");
    file("proj/src/Widget.h");
    file("proj/demo.dsp", dspText({".\\src\\main.cpp", "\"..\\shared code\\util one.cpp\"", "src\\main.cpp",
                                   ".\\res\\app.rc", "src\\WIDGET.H", "\"$(InputPath)\"", ".\\src\\gone.cpp", ""}));
    const App::ProjectList list = read("proj/demo.dsp");
    ASSERT_EQ(list.projects.size(), 1u);
    EXPECT_EQ(list.projects[0].path, path("proj/demo.dsp"));
    EXPECT_EQ(list.projects[0].error, "");
    // The same file spelt twice is listed once; letter case is taken as the
    // disk has it; a missing file stays listed (the job reports it).
    EXPECT_EQ(list.projects[0].files,
              (std::vector<std::string>{path("proj/src/main.cpp"), path("shared code/util one.cpp"),
                                        path("proj/Res/App.rc"), path("proj/src/Widget.h"),
                                        path("proj/src/gone.cpp")}));
}

TEST_F(ProjectFilesTest, DspPathsStayRelativeWhenTheProjectIsNamedRelatively)
{
    file("proj/a.c");
    file("proj/p.dsp", dspText({"a.c"}));
    const fs::path old = fs::current_path();
    fs::current_path(m_dir.path());
    App::ProjectList list;
    std::string error;
    ASSERT_TRUE(App::readProjectFile("proj/p.dsp", list, error));
    fs::current_path(old);
    EXPECT_EQ(list.projects[0].files, std::vector<std::string>{"proj/a.c"});
}

TEST_F(ProjectFilesTest, DswListsItsOwnEntryThenEachProject)
{
    file("one/one.cpp");
    file("two words/two.cpp");
    file("one/one.dsp", dspText({"one.cpp"}));
    file("two words/two.dsp", dspText({"two.cpp", "two.cpp"}));
    file("all.dsw", "Microsoft Developer Studio Workspace File, Format Version 6.00\r\n"
                    "# WARNING: DO NOT EDIT OR DELETE THIS WORKSPACE FILE!\r\n\r\n"
                    "###############################################################################\r\n\r\n"
                    "Project: \"one\"=.\\one\\one.dsp - Package Owner=<4>\r\n\r\nPackage=<5>\r\n{{{\r\n}}}\r\n\r\n"
                    "Project: \"two=2\"=\"two words\\two.dsp\" - Package Owner=<4>\r\n\r\n"
                    "Project: \"lost\"=.\\lost\\lost.dsp - Package Owner=<4>\r\n\r\n"
                    "Global:\r\n\r\nPackage=<5>\r\n{{{\r\n}}}\r\n");
    const App::ProjectList list = read("all.dsw");
    ASSERT_EQ(list.projects.size(), 4u);
    EXPECT_EQ(list.projects[0].path, path("all.dsw"));
    EXPECT_TRUE(list.projects[0].files.empty());
    EXPECT_EQ(list.projects[1].path, path("one/one.dsp"));
    EXPECT_EQ(list.projects[1].files, std::vector<std::string>{path("one/one.cpp")});
    EXPECT_EQ(list.projects[2].path, path("two words/two.dsp"));
    EXPECT_EQ(list.projects[2].files, std::vector<std::string>{path("two words/two.cpp")});
    EXPECT_EQ(list.projects[3].path, path("lost/lost.dsp"));
    EXPECT_NE(list.projects[3].error.find("No such file or directory"), std::string::npos);
    EXPECT_TRUE(list.projects[3].files.empty());
}

TEST_F(ProjectFilesTest, VcxprojTakesCompileAndIncludeItems)
{
    file("p/a.cpp");
    file("p/b c.h");
    file("p/sub/d.cpp");
    file("p/p.vcxproj",
         "\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n"
         "<Project DefaultTargets=\"Build\" xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">\r\n"
         "  <ItemGroup Label=\"ProjectConfigurations\"><ProjectConfiguration Include=\"Debug|x64\"/></ItemGroup>\r\n"
         "  <ItemGroup>\r\n"
         "    <ClCompile Include=\"a.cpp\" />\r\n"
         "    <ClCompile Include=\"$(MSBuildThisFileDirectory)sub\\d.cpp;missing.cpp\">\r\n"
         "      <PrecompiledHeader>NotUsing</PrecompiledHeader>\r\n"
         "    </ClCompile>\r\n"
         "    <ClCompile Include=\".\\a.cpp\" />\r\n"
         "    <ClCompile Include=\"gen\\*.cpp\" />\r\n"
         "    <ClCompile Remove=\"old.cpp\" />\r\n"
         "  </ItemGroup>\r\n"
         "  <ItemGroup Condition=\"'$(Configuration)'=='Debug'\">\r\n"
         "    <ClInclude Include=\"b%20c.h\" />\r\n"
         "    <None Include=\"readme.txt\" />\r\n"
         "  </ItemGroup>\r\n"
         "</Project>\r\n");
    const App::ProjectList list = read("p/p.vcxproj");
    ASSERT_EQ(list.projects.size(), 1u);
    EXPECT_EQ(list.projects[0].files, (std::vector<std::string>{path("p/a.cpp"), path("p/sub/d.cpp"),
                                                                path("p/missing.cpp"), path("p/b c.h")}));
    ASSERT_EQ(list.projects[0].notes.size(), 1u);
    EXPECT_NE(list.projects[0].notes[0].find("\"gen\\*.cpp\""), std::string::npos);
}

TEST_F(ProjectFilesTest, SlnReadsTheCppProjectsItNames)
{
    file("lib/x.cpp");
    file("lib/lib.vcxproj", "<Project><ItemGroup><ClCompile Include=\"x.cpp\"/></ItemGroup></Project>");
    file("app one/app.vcxproj", "<Project><ItemGroup><ClCompile Include=\"..\\lib\\x.cpp\"/>"
                                "<ClInclude Include=\"main.h\"/></ItemGroup></Project>");
    file("all.sln", "\xEF\xBB\xBF\r\nMicrosoft Visual Studio Solution File, Format Version 12.00\r\n"
                    "# Visual Studio Version 17\r\n"
                    "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"lib\", \"lib\\lib.vcxproj\", "
                    "\"{11111111-1111-1111-1111-111111111111}\"\r\nEndProject\r\n"
                    "Project(\"{2150E333-8FDC-42A3-9474-1A3956D46DE8}\") = \"Docs\", \"Docs\", "
                    "\"{22222222-2222-2222-2222-222222222222}\"\r\nEndProject\r\n"
                    "Project(\"{FAE04EC0-301F-11D3-BF4B-00C04F79EFBC}\") = \"tool\", \"tool\\tool.csproj\", "
                    "\"{33333333-3333-3333-3333-333333333333}\"\r\nEndProject\r\n"
                    "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"app\", \"app one\\app.vcxproj\", "
                    "\"{44444444-4444-4444-4444-444444444444}\"\r\nEndProject\r\n"
                    "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"gone\", \"gone\\gone.vcxproj\", "
                    "\"{55555555-5555-5555-5555-555555555555}\"\r\nEndProject\r\n"
                    "Global\r\nEndGlobal\r\n");
    const App::ProjectList list = read("all.sln");
    ASSERT_EQ(list.projects.size(), 4u);
    EXPECT_EQ(list.projects[0].path, path("all.sln"));
    EXPECT_EQ(list.projects[1].files, std::vector<std::string>{path("lib/x.cpp")});
    EXPECT_EQ(list.projects[2].path, path("app one/app.vcxproj"));
    EXPECT_EQ(list.projects[2].files, (std::vector<std::string>{path("lib/x.cpp"), path("app one/main.h")}));
    EXPECT_EQ(list.projects[3].path, path("gone/gone.vcxproj"));
    EXPECT_NE(list.projects[3].error, "");
}

TEST_F(ProjectFilesTest, CompileCommandsTakeEachFileFromItsDirectory)
{
    file("src/a.c");
    file("src/b c.c");
    file("build/compile_commands.json",
         "[\n"
         " {\"directory\": \"" + path("build") + "\", \"command\": \"cc -c ../src/a.c\", \"file\": \"../src/a.c\"},\n"
         " {\"directory\": \"" + path("build") + "\", \"arguments\": [\"cc\", \"-DX\"], \"file\": \"../src/a.c\"},\n"
         " {\"directory\": \"../src\", \"file\": \"b c.c\"},\n"
         " {\"directory\": \"/elsewhere\", \"file\": \"" + path("src/a.c") + "\"},\n"
         " {\"directory\": \"/x\", \"command\": \"true\"}\n"
         "]\n");
    const App::ProjectList list = read("build/compile_commands.json");
    ASSERT_EQ(list.projects.size(), 1u);
    EXPECT_EQ(list.projects[0].files, (std::vector<std::string>{path("src/a.c"), path("src/b c.c")}));
    ASSERT_EQ(list.projects[0].notes.size(), 1u);
    EXPECT_NE(list.projects[0].notes[0].find("Entry 5"), std::string::npos);
}

TEST_F(ProjectFilesTest, FilesThatAreNotOfTheirKindAreRefusedWithTheReason)
{
    file("a.dsp", "int main() {}\n");
    EXPECT_NE(failure("a.dsp").find("is not a Developer Studio project file"), std::string::npos);
    file("a.dsw", "");
    EXPECT_NE(failure("a.dsw").find("is not a Developer Studio workspace file"), std::string::npos);
    file("a.vcxproj", "<Project><ItemGroup>");
    EXPECT_NE(failure("a.vcxproj").find("not well-formed XML"), std::string::npos);
    file("b.vcxproj", "<Solution/>");
    EXPECT_NE(failure("b.vcxproj").find("root element is <Solution>"), std::string::npos);
    file("a.sln", "Project(\"x\") = \"a\", \"a.vcxproj\", \"y\"\n");
    EXPECT_NE(failure("a.sln").find("is not a Visual Studio solution"), std::string::npos);
    file("c.json", "{\"file\": \"a.c\"}");
    EXPECT_NE(failure("c.json").find("is not a compilation database"), std::string::npos);
    file("d.json", "[{\"file\": ");
    EXPECT_NE(failure("d.json").find("not valid JSON"), std::string::npos);
    EXPECT_NE(failure("none.dsp").find("cannot read project file"), std::string::npos);
    EXPECT_NE(failure("x.txt").find("is not a project file"), std::string::npos);
}

} // namespace
