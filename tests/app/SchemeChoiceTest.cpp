// Which scheme formats a file: option, project scheme file, setting, default.
#include "App_SchemeChoice.h"
#include "App_SchemeStore.h"

#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using tw_test::schemeText;
using tw_test::TempDir;
using tw_test::writeBytes;

const std::string BUILT_IN = TW_SCHEMES_DIR;

class SchemeChoiceTest : public ::testing::Test {
protected:
    SchemeChoiceTest()
    {
        m_request.schemeDirectory = (m_dir.path() / "schemes").string();
        m_request.builtInDirectory = BUILT_IN;
        m_request.settingsPath = "/cfg/tidewright.ini";
        fs::create_directories(m_dir.path() / "proj" / "src" / "deep");
        writeBytes(m_dir.path() / "proj" / ".tidewright.tws", schemeText("Project", "2 TAB_SIZE 3\n"));
        writeBytes(m_dir.path() / "proj" / "src" / "deep" / "a.cpp", "int x;\n");
        fs::create_directories(m_dir.path() / "other");
    }

    App::SchemeChoice choose(const fs::path& path)
    {
        App::SchemeChooser chooser(m_request);
        App::SchemeChoice choice;
        std::string error;
        EXPECT_TRUE(chooser.choose(path.string(), choice, error)) << error;
        return choice;
    }

    TempDir m_dir;
    App::SchemeRequest m_request;
};

TEST_F(SchemeChoiceTest, TheNearestProjectSchemeFileAboveTheFile)
{
    EXPECT_EQ(App::findProjectScheme((m_dir.path() / "proj" / "src" / "deep").string()),
              (m_dir.path() / "proj" / ".tidewright.tws").string());
    writeBytes(m_dir.path() / "proj" / "src" / ".tidewright.tws", schemeText("Nearer", ""));
    const App::SchemeChoice c = choose(m_dir.path() / "proj" / "src" / "deep" / "a.cpp");
    EXPECT_EQ(c.source, App::SchemeSource::PROJECT_FILE);
    EXPECT_EQ(c.set.name(), "Nearer");
    EXPECT_EQ(App::findProjectScheme((m_dir.path() / "other").string()), "");
}

TEST_F(SchemeChoiceTest, OptionsComeFirst)
{
    m_request.schemeName = "K&R";
    m_request.onFormat = "GNU";
    App::SchemeChoice c = choose(m_dir.path() / "proj" / "src" / "deep" / "a.cpp");
    EXPECT_EQ(c.source, App::SchemeSource::OPTION_NAME);
    EXPECT_EQ(c.set.name(), "K&R");
    m_request.schemeName.clear();
    m_request.schemeFile = BUILT_IN + "/GNU.tws";
    c = choose(m_dir.path() / "proj" / "src" / "deep" / "a.cpp");
    EXPECT_EQ(c.source, App::SchemeSource::OPTION_FILE);
    EXPECT_EQ(c.set.name(), "GNU");
}

TEST_F(SchemeChoiceTest, TheProjectSchemeComesBeforeTheSetting)
{
    m_request.onFormat = "GNU";
    const App::SchemeChoice c = choose(m_dir.path() / "proj" / "src" / "deep" / "a.cpp");
    EXPECT_EQ(c.source, App::SchemeSource::PROJECT_FILE);
    EXPECT_EQ(c.set.name(), "Project");
    std::int32_t tab = 0;
    EXPECT_TRUE(c.set.getInt("TAB_SIZE", tab));
    EXPECT_EQ(tab, 3);
}

TEST_F(SchemeChoiceTest, TheSettingThenTheDefault)
{
    m_request.onFormat = "Stroustrup";
    App::SchemeChoice c = choose(m_dir.path() / "other" / "b.cpp");
    EXPECT_EQ(c.source, App::SchemeSource::SETTINGS);
    EXPECT_EQ(c.set.name(), "Stroustrup");
    m_request.onFormat.clear();
    c = choose(m_dir.path() / "other" / "b.cpp");
    EXPECT_EQ(c.source, App::SchemeSource::DEFAULT);
    EXPECT_EQ(c.set.name(), "default");
}

TEST_F(SchemeChoiceTest, ASettingNamingNoSchemeIsIgnoredWithANote)
{
    m_request.onFormat = "No such scheme";
    const App::SchemeChoice c = choose(m_dir.path() / "other" / "b.cpp");
    EXPECT_EQ(c.source, App::SchemeSource::DEFAULT);
    EXPECT_EQ(c.set.name(), "default");
    EXPECT_NE(c.note.find("'No such scheme'"), std::string::npos);
    const std::string text = App::explainChoice(c, m_request, m_request.schemeDirectory);
    EXPECT_NE(text.find("scheme: default\n"), std::string::npos) << text;
    EXPECT_NE(text.find("note: the setting StandaloneOnFormat names the scheme 'No such scheme'"), std::string::npos);
}

TEST_F(SchemeChoiceTest, ABrokenProjectSchemeFileIsAnErrorNamingIt)
{
    writeBytes(m_dir.path() / "proj" / ".tidewright.tws", "not a scheme\n");
    App::SchemeChooser chooser(m_request);
    App::SchemeChoice choice;
    std::string error;
    EXPECT_FALSE(chooser.choose((m_dir.path() / "proj" / "src" / "deep" / "a.cpp").string(), choice, error));
    EXPECT_NE(error.find(".tidewright.tws"), std::string::npos) << error;
}

TEST_F(SchemeChoiceTest, ExplanationsSayWhereAndWhy)
{
    const App::SchemeChoice c = choose(m_dir.path() / "proj" / "src" / "deep" / "a.cpp");
    EXPECT_EQ(App::explainChoice(c, m_request, ""),
              "scheme: Project\nfile: " + (m_dir.path() / "proj" / ".tidewright.tws").string()
                  + "\nreason: the nearest .tidewright.tws in the file's directory or above it\n");
    m_request.onFormat = "GNU";
    const App::SchemeChoice s = choose(m_dir.path() / "other" / "b.cpp");
    EXPECT_EQ(App::explainChoice(s, m_request, "/dir"),
              "scheme: GNU\ndirectory: /dir\nreason: the setting StandaloneOnFormat in /cfg/tidewright.ini\n");
}

} // namespace
