// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/begin_anew.h"

#include <gmock/gmock.h>

#include "database/agreement.h"
#include "database/careers_fixture.h"
#include "database/folder_lock.h"
#include "database/settings_form.h"

namespace velorin {
namespace {

using testing::bytes_of;
using ::testing::ElementsAre;
using testing::error_of;
using testing::names_in;
using testing::write_bytes;

class BeginAnew : public testing::careers_fixture {
 protected:
  static std::string both_bytes() { return bytes_of(data.files.career_file) + bytes_of(data.files.record_file); }
};

TEST_F(BeginAnew, LeavesNoCareerAndNoRecord) {
  update_career_and_records(match, data);
  ASSERT_TRUE(has_careers_or_records(data.files));
  begin_careers_anew(data.files);
  EXPECT_FALSE(has_careers_or_records(data.files));
  EXPECT_EQ(both_bytes(), "");
  EXPECT_EQ(read_career_table(data).career_team_count, 0);
  EXPECT_EQ(read_record_lists(data).table_team_count, 0);
  EXPECT_THAT(names_in(folder), ElementsAre("base.ptr", "base.rec")) << "emptied, not taken away";
}

TEST_F(BeginAnew, TheNextMatchIsTheFirst) {
  update_career_and_records(match, data);
  const std::string first = both_bytes();
  update_career_and_records(match, data);
  ASSERT_NE(both_bytes(), first);
  begin_careers_anew(data.files);
  update_career_and_records(match, data);
  EXPECT_EQ(both_bytes(), first);
}

TEST_F(BeginAnew, CountsEitherFile) {
  EXPECT_FALSE(has_careers_or_records(data.files)) << "there are none";
  write_bytes(data.files.record_file, "cut");
  EXPECT_TRUE(has_careers_or_records(data.files));
  write_bytes(data.files.record_file, "");
  EXPECT_FALSE(has_careers_or_records(data.files));
  write_bytes(data.files.career_file, "cut");
  EXPECT_TRUE(has_careers_or_records(data.files));
}

TEST_F(BeginAnew, HelpsOutOfDamagedFiles) {
  write_bytes(data.files.career_file, "cut");
  write_bytes(data.files.record_file, std::string(2500, '\xFF'));
  begin_careers_anew(data.files);
  update_career_and_records(match, data);
  EXPECT_EQ(career_of("Alba", "A.Man2").runs, 120);
}

TEST_F(BeginAnew, ChangesNothingWhereOneFileCannotBeReplaced) {
  update_career_and_records(match, data);
  const std::string careers = bytes_of(data.files.career_file);
  std::filesystem::remove(data.files.record_file);
  std::filesystem::create_directory(data.files.record_file);
  EXPECT_EQ(error_of([] { begin_careers_anew(data.files); }).kind(), failure::file);
  EXPECT_EQ(bytes_of(data.files.career_file), careers);
}

TEST_F(BeginAnew, IsDoneToTheDatabaseThatTheSettingsChoose) {
  update_career_and_records(match, data);
  for (const char* name : {"base.team", "base.grd", "other.team", "other.grd", "bare.team", "bare.grd"}) {
    write_bytes(folder / name, "");
  }
  for (const char* ending : {".rec", ".ptr"}) {
    std::filesystem::copy_file(folder / (std::string("base") + ending), folder / (std::string("other") + ending));
  }
  settings_form form(data);
  form.open();
  EXPECT_FALSE(form.has_careers()) << "none is chosen";
  form.database = "bare";
  EXPECT_FALSE(form.has_careers());
  form.database = "other";
  EXPECT_TRUE(form.has_careers());
  EXPECT_FALSE(form.begin_anew().has_value());
  EXPECT_FALSE(form.has_careers());
  EXPECT_EQ(bytes_of(folder / "other.rec") + bytes_of(folder / "other.ptr"), "");
  EXPECT_NE(bytes_of(folder / "base.rec"), "");
  EXPECT_EQ(data.files.base, "base") << "choosing is another matter";
  EXPECT_FALSE(form.closed);
}

TEST_F(BeginAnew, TheSettingsTellWhatFailed) {
  for (const char* name : {"base.team", "base.grd"}) write_bytes(folder / name, "");
  std::filesystem::create_directory(data.files.career_file);
  settings_form form(data);
  form.open();
  form.database = "base";
  const auto told = form.begin_anew();
  ASSERT_TRUE(told.has_value());
  EXPECT_EQ(told->title, "Error");
  EXPECT_THAT(told->text, ::testing::HasSubstr("base.rec"));
}

}  // namespace
}  // namespace velorin
