// SPDX-License-Identifier: GPL-3.0-or-later
// scripts/install with folders of all names, on a tree whose programs are stand-ins.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>

#include "recording/recording.h"

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::Not;

class Install : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "velorin-install-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    root_ = fs::canonical(pattern);
    const fs::path project = fs::path(VELORIN_TEST_DATA).parent_path();
    fs::create_directories(tree() / "scripts");
    fs::create_directories(here());
    fs::copy_file(project / "scripts" / "install", tree() / "scripts" / "install");
    fs::copy(project / "packaging", tree() / "packaging");
    write(tree() / "scripts" / "install-needs", "#!/bin/sh\n");
    write(root_ / "path" / "cmake", "#!/bin/sh\n");
    for (const char* name : {"velorin", "velorin-cli"}) write(built() / name, "#!/bin/sh\necho started\n");
    for (const char* name : {"world.team", "world.grd", "options.mc"}) write(built() / "teams" / name, name);
    // What somebody has played in the built game is his, and not installed.
    for (const char* name : {"world.rec", "world.ptr", "world.matches"}) {
      write(seasons() / name, std::string("seasons in ") + name);
      write(built() / "teams" / name, "played in the built game");
    }
  }
  void TearDown() override { fs::remove_all(root_); }

  fs::path tree() const { return root_ / "tree"; }
  fs::path here() const { return root_ / "here"; }
  fs::path seasons() const { return tree() / "build" / "release" / "seasons"; }
  fs::path built() const { return tree() / "build" / "release" / "bin"; }

  static void write(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
    fs::permissions(file, fs::perms::owner_all);
  }
  static std::string text_of(const fs::path& file) {
    std::ifstream in(file);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
  }

  /// Runs the script from here(); its status.
  int install(const std::string& prefix) const {
    const pid_t process = ::fork();
    if (process == 0) {
      const std::string script = tree() / "scripts" / "install";
      ::setenv("PATH", ((root_ / "path").string() + ":" + std::getenv("PATH")).c_str(), 1);
      if (::chdir(here().c_str()) == 0) ::execl(script.c_str(), "install", prefix.c_str(), static_cast<char*>(nullptr));
      ::_exit(127);
    }
    int status = -1;
    ::waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  /// The program that a menu starts by this entry: the text of the file is read first, then its quotes.
  static std::string started_by(const std::string& entry) {
    const std::size_t from = entry.find("\nExec=\"") + 7;
    std::string value = entry.substr(from, entry.find('\n', from) - from);
    for (int reading = 0; reading < 2; ++reading) {
      std::string plain;
      for (std::size_t at = 0; at < value.size(); ++at) {
        const bool escaped = value[at] == '\\';
        if (escaped) ++at;
        plain += escaped && reading == 0 && value.at(at) == 'n' ? '\n' : value.at(at);
      }
      value = std::exchange(plain, {});
    }
    // The file that is opened follows as a word of its own.
    EXPECT_TRUE(value.ends_with("\" %f")) << value;
    value.erase(value.size() - 4);
    for (std::size_t at = value.find("%%"); at != std::string::npos; at = value.find("%%", at + 1)) value.erase(at, 1);
    return value;
  }

  fs::path root_;
};

TEST_F(Install, AFolderMayHaveAnyName) {
  for (const char* name : {"plain", "with & and |", "a\\b \"c\" $HOME `x` 100%", "two\nlines\\n"}) {
    SCOPED_TRACE(name);
    const fs::path prefix = root_ / name;
    ASSERT_EQ(install(prefix), 0);
    const std::string entry = text_of(prefix / "share" / "applications" / "velorin.desktop");
    EXPECT_EQ(started_by(entry), (prefix / "lib" / "velorin" / "velorin").string()) << entry;
    EXPECT_THAT(entry, HasSubstr("\nName=Velorin\n"));
    EXPECT_EQ(text_of(prefix / "bin" / "velorin"), "#!/bin/sh\necho started\n");
  }
}

TEST_F(Install, ASavedGameIsOfAMediaTypeThatTheGameOpens) {
  const fs::path share = root_ / "media" / "share";
  ASSERT_EQ(install(root_ / "media"), 0);
  const std::string type = text_of(share / "mime" / "packages" / "velorin-recording.xml");
  const std::string icon = "application-x-velorin-recording";
  EXPECT_THAT(type, HasSubstr("<mime-type type=\"application/x-velorin-recording\">"));
  EXPECT_THAT(type, HasSubstr("<icon name=\"" + icon + "\"/>"));
  EXPECT_THAT(type, HasSubstr("<glob pattern=\"*" + std::string(recording_extension) + "\"/>"));
  // The magic stands there as a file has it, its line feed as two characters.
  ASSERT_TRUE(recording_magic.ends_with('\n'));
  const std::string magic(recording_magic.substr(0, recording_magic.size() - 1));
  EXPECT_THAT(type, HasSubstr("<match type=\"string\" offset=\"0\" value=\"" + magic + "\\n\"/>"));
  const std::string entry = text_of(share / "applications" / "velorin.desktop");
  EXPECT_THAT(entry, HasSubstr("\nMimeType=application/x-velorin-recording;\n"));
  EXPECT_THAT(text_of(share / "icons" / "hicolor" / "scalable" / "mimetypes" / (icon + ".svg")), HasSubstr("<svg"));
}

TEST_F(Install, TheDesktopIsToldOfWhatIsNew) {
  const fs::path told = root_ / "told";
  for (const char* name : {"update-mime-database", "update-desktop-database"}) {
    write(root_ / "path" / name, "#!/bin/sh\necho \"${0##*/} $1\" >> '" + told.string() + "'\nexit 1\n");
  }
  const fs::path prefix = root_ / "a desktop";
  ASSERT_EQ(install(prefix), 0) << "though they fail";
  EXPECT_EQ(text_of(told), "update-mime-database " + (prefix / "share" / "mime").string() +
                               "\nupdate-desktop-database " + (prefix / "share" / "applications").string() + "\n");
}

TEST_F(Install, ARelativeFolderIsOneOfWhereTheUserStands) {
  ASSERT_EQ(install("own & games"), 0);
  const fs::path home = here() / "own & games" / "lib" / "velorin";
  EXPECT_EQ(text_of(home / "teams" / "options.mc"), "options.mc");
  EXPECT_EQ(fs::read_symlink(here() / "own & games" / "bin" / "velorin-cli"), home / "velorin-cli");
  EXPECT_EQ(started_by(text_of(here() / "own & games" / "share" / "applications" / "velorin.desktop")),
            (home / "velorin").string());
  EXPECT_FALSE(fs::exists(tree() / "own & games"));
}

TEST_F(Install, AnotherTimeKeepsTheSettings) {
  const fs::path prefix = root_ / "again";
  ASSERT_EQ(install(prefix), 0);
  write(prefix / "lib" / "velorin" / "teams" / "options.mc", "mine");
  ASSERT_EQ(install(prefix), 0);
  EXPECT_EQ(text_of(prefix / "lib" / "velorin" / "teams" / "options.mc"), "mine");
}

TEST_F(Install, TheFirstTimeBringsCareersAndRecords) {
  const fs::path teams = root_ / "first" / "lib" / "velorin" / "teams";
  ASSERT_EQ(install(root_ / "first"), 0);
  EXPECT_EQ(text_of(teams / "world.rec"), "seasons in world.rec");
  EXPECT_EQ(text_of(teams / "world.ptr"), "seasons in world.ptr");
  EXPECT_EQ(text_of(teams / "world.matches"), "seasons in world.matches");
  EXPECT_FALSE(fs::exists(teams / "world.rec.made"));
  EXPECT_FALSE(fs::exists(teams / "world.ptr.made"));
}

TEST_F(Install, AnotherTimeKeepsCareersAndRecords) {
  const fs::path teams = root_ / "again" / "lib" / "velorin" / "teams";
  for (const char* kept : {"world.rec", "world.ptr", "world.matches"}) {
    SCOPED_TRACE(kept);
    fs::remove_all(teams);
    write(teams / kept, "mine");
    ASSERT_EQ(install(root_ / "again"), 0);
    EXPECT_EQ(text_of(teams / kept), "mine");
    const int there =
        fs::exists(teams / "world.rec") + fs::exists(teams / "world.ptr") + fs::exists(teams / "world.matches");
    EXPECT_EQ(there, 1) << "nothing beside them";
  }
  // Begun anew: there, and empty.
  for (const char* emptied : {"world.rec", "world.ptr"}) write(teams / emptied, "");
  ASSERT_EQ(install(root_ / "again"), 0);
  EXPECT_EQ(text_of(teams / "world.rec") + text_of(teams / "world.ptr"), "");
}

TEST_F(Install, WhatAStoppedOneHasLeftIsFinished) {
  const fs::path teams = root_ / "stopped" / "lib" / "velorin" / "teams";
  write(teams / "world.ptr", "seasons in world.ptr");
  write(teams / "world.rec.made", "seasons in");
  ASSERT_EQ(install(root_ / "stopped"), 0);
  EXPECT_EQ(text_of(teams / "world.rec"), "seasons in world.rec");
  EXPECT_FALSE(fs::exists(teams / "world.rec.made"));
}

}  // namespace
}  // namespace velorin::testing
