// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "frame/rules/projects.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace kelmar {
namespace {

std::string marks(const ProjectList& list) {
  std::string text;
  for (const ProjectList::Entry& entry : list.entries())
    text += (text.empty() ? "" : " ") + std::string(entry.marked ? "+" : "-") + entry.text;
  return text;
}

std::string written(const ProjectList& list) {
  ProjectNames names;
  names.Add("OLD");
  list.writeTo(names);
  std::string text;
  for (const std::string& name : names)
    text += (text.empty() ? "" : " ") + name;
  return text;
}

ProjectList three() {
  return {"All projects", {"A1", "B2", "C3"}};
}

TEST(Projects, AreTheCodesOfAllManufacturers) {
  support::TempFolder folder;
  const std::string file =
      folder.write("projects.xml", R"(<projects><Manufacturer name="M"><project code="A1" name="a"/>
      <project name="without code"/><project code="B2"/></Manufacturer>
      <Manufacturer><project code="C3"/></Manufacturer><project code="stray"/></projects>)");
  EXPECT_EQ((std::vector<std::string>{"A1", "B2", "C3"}), projectCodes(file));
}

TEST(Projects, OfAFileThatCannotBeReadAreNone) {
  support::TempFolder folder;
  EXPECT_FALSE(projectCodes(""));
  EXPECT_FALSE(projectCodes(folder.file("absent.xml")));
  EXPECT_FALSE(projectCodes(folder.write("broken.xml", "<projects>")));
}

TEST(Projects, ListBeginsWithAllProjects) {
  EXPECT_EQ("-All projects -A1 -B2 -C3", marks(three()));
  EXPECT_EQ("", marks({}));
}

TEST(Projects, ShowMarksWhatTheEcuBelongsToWithoutRegardToCase) {
  ProjectList list = three();
  ProjectNames names;
  names.Add("b2");
  names.Add("Unlisted");
  list.show(names);
  EXPECT_EQ("-All projects -A1 +B2 -C3", marks(list));
}

TEST(Projects, ShowMarksAllProjectsWhenEveryOtherIsMarked) {
  ProjectList list = three();
  ProjectNames names;
  for (const char* name : {"A1", "B2", "C3"})
    names.Add(name);
  list.show(names);
  EXPECT_EQ("+All projects +A1 +B2 +C3", marks(list));
}

TEST(Projects, AProjectOfThatNameDoesNotMarkAllProjects) {
  ProjectList list = three();
  ProjectNames names;
  names.Add("All projects");
  list.show(names);
  EXPECT_EQ("-All projects -A1 -B2 -C3", marks(list));
}

TEST(Projects, MarkingAllProjectsMarksEveryOtherAndBack) {
  ProjectList list = three();
  list.mark(0, true);
  EXPECT_EQ("+All projects +A1 +B2 +C3", marks(list));
  list.mark(2, false);
  EXPECT_EQ("-All projects +A1 -B2 +C3", marks(list));
  list.mark(2, true);
  EXPECT_EQ("+All projects +A1 +B2 +C3", marks(list));
  list.mark(0, false);
  EXPECT_EQ("-All projects -A1 -B2 -C3", marks(list));
}

TEST(Projects, AllProjectsIsNeverWrittenAsOne) {
  ProjectList list = three();
  list.mark(0, true);
  EXPECT_EQ("A1 B2 C3", written(list));
}

TEST(Projects, WritingReplacesWhatWasThere) {
  ProjectList list = three();
  EXPECT_EQ("", written(list));
  list.mark(3, true);
  EXPECT_EQ("C3", written(list));
}

TEST(Projects, ACodeThatStandsTwiceIsWrittenOnce) {
  ProjectList list("All projects", {"A1", "a1"});
  list.mark(0, true);
  EXPECT_EQ("A1", written(list));
}

TEST(Projects, AListOfAllProjectsAloneCannotBeMarked) {
  ProjectList list("All projects", {});
  list.mark(0, true);
  EXPECT_EQ("-All projects", marks(list));
}

} // namespace
} // namespace kelmar
