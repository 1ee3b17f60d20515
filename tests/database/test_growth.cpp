// SPDX-FileCopyrightText: the Kelmar developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ecu.h"

#include <ctime>

namespace kelmar::testing {
namespace {

constexpr int few = 25'000, many = 100'000;
/// Four times the members in a line take four times as long, in a square sixteen times.
constexpr double mostGrowth = 10.0;
/// Shorter times say nothing about growth.
constexpr double leastSeconds = 0.02;

/// Seconds of the processor: other programs on the machine do not count.
template <class Action>
double secondsOf(Action action) {
  const std::clock_t start = std::clock();
  action();
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

std::string repeated(int count, const std::function<std::string(const std::string&)>& member) {
  std::string text;
  for (int i = 0; i < count; ++i)
    text += member(std::to_string(i)) + "\n";
  return text;
}

/// The best of a few runs of `measure(count)`, `many` against `few`.
template <class Measure>
void expectLinearTime(Measure measure) {
  double small = 1e9, large = 1e9;
  for (int run = 0; run < 5; ++run) {
    small = std::min(small, measure(few));
    large = std::min(large, measure(many));
    // A clear answer needs no second look.
    if (large / std::max(small, leastSeconds) < mostGrowth) break;
  }
  EXPECT_LT(large / std::max(small, leastSeconds), mostGrowth)
      << small << " s and " << large << " s";
}

/// Loading and saving such files.
void expectLinear(const std::function<FileText(int)>& file) {
  expectLinearTime([&](int count) {
    Ecu ecu;
    const std::string path = ecu.folder.write("in.xml", file(count).text());
    return secondsOf([&] {
      ecu.db.ImportUceFromXml(path);
      EXPECT_GT(ecu.saved().size(), 1000u);
    });
  });
}

std::string datas(int count) {
  return repeated(count, [](const std::string& i) { return "<Data Name='D" + i + "'/>"; });
}

std::string request(const std::string& positions) {
  return "<Request Name='R'><Sent>" + positions + "</Sent></Request>";
}

std::string positions(int count, const std::string& more = "") {
  return repeated(
      count, [&](const std::string& i) { return "<DataItem Name='D" + i + "' " + more + "/>"; });
}

std::string inScreen(const std::string& content) {
  return "<Category Name='C'><Screen Name='S' Width='1' Height='1' Color='1' WindowState='0'>" +
         content + "</Screen></Category>";
}

TEST(Growth, OfDatasRequestsDevicesAndCategories) {
  expectLinear([](int count) {
    FileText file;
    file.datas = datas(count);
    file.requests =
        repeated(count, [](const std::string& i) { return "<Request Name='R" + i + "'/>"; });
    return file;
  });
  expectLinear([](int count) {
    FileText file;
    file.devices =
        repeated(count, [](const std::string& i) { return "<Device Name='V" + i + "'/>"; });
    return file;
  });
  expectLinear([](int count) {
    FileText file;
    file.categories =
        repeated(count, [](const std::string& i) { return "<Category Name='C" + i + "'/>"; });
    return file;
  });
}

TEST(Growth, OfAListOfValues) {
  expectLinear([](int count) {
    FileText file;
    file.datas = "<Data Name='D'><Bits><List>" +
                 repeated(count,
                          [](const std::string& i) {
                            return "<Item Value='" + i + "' Text='t" + i + "'/>";
                          }) +
                 "</List></Bits></Data>";
    return file;
  });
}

TEST(Growth, OfPositionsInOneRequest) {
  expectLinear([](int count) {
    FileText file;
    file.datas = datas(count);
    file.requests = request(positions(count));
    return file;
  });
}

TEST(Growth, OfPositionsThatAreNotKept) {
  expectLinear([](int count) {
    FileText file;
    file.requests = request(positions(count));
    return file;
  });
  expectLinear([](int count) {
    FileText file;
    file.datas = datas(1);
    file.requests =
        request(repeated(count, [](const std::string&) { return "<DataItem Name='D0'/>"; }));
    return file;
  });
}

TEST(Growth, OfDataInOneDevice) {
  expectLinear([](int count) {
    FileText file;
    file.devices =
        "<Device Name='V'>" +
        repeated(count, [](const std::string& i) { return "<DeviceData Name='D" + i + "'/>"; }) +
        "</Device>";
    return file;
  });
}

TEST(Growth, OfFlagsAndTestsInOneDevice) {
  expectLinear([](int count) {
    FileText file;
    file.datas = datas(count);
    file.requests = request(positions(count, "Ref='1'"));
    file.devices = "<Device Name='V'>" +
                   repeated(count,
                            [](const std::string& i) {
                              return "<Test Type='" + i + "' OBD='" + i + "'><StoredFlag>D" + i +
                                     "</StoredFlag></Test>";
                            }) +
                   "</Device>";
    return file;
  });
}

TEST(Growth, OfScreensOfOneName) {
  expectLinear([](int count) {
    FileText file;
    file.categories = "<Category Name='C'>" +
                      repeated(count, [](const std::string&) { return "<Screen Name='S'/>"; }) +
                      "</Category>";
    return file;
  });
}

TEST(Growth, OfStepsOfOneButton) {
  expectLinear([](int count) {
    FileText file;
    file.requests = request("");
    file.categories =
        inScreen(repeated(count, [](const std::string&) { return "<Send RequestName='R'/>"; }));
    return file;
  });
}

TEST(Growth, OfLabelsAndButtonsOfOneScreen) {
  expectLinear([](int count) {
    FileText file;
    file.categories = inScreen(repeated(
        count, [](const std::string& i) { return "<Label Text='" + i + "'/><Button Text='b'/>"; }));
    return file;
  });
}

TEST(Growth, OfProjectsAndAutoIdents) {
  expectLinear([](int count) {
    FileText file;
    file.head = "<Projects>" +
                repeated(count, [](const std::string& i) { return "<P" + i + "/>"; }) +
                "</Projects>";
    file.autoIdents =
        "<AutoIdents>" +
        repeated(count,
                 [](const std::string& i) {
                   return "<AutoIdent DiagVersion='" + i + "' Supplier='' Soft='' Version=''/>";
                 }) +
        "</AutoIdents>";
    return file;
  });
}

TEST(Growth, OfDisplaysOfALongRequest) {
  expectLinear([](int count) {
    FileText file;
    file.datas = datas(count);
    file.requests = request(positions(count));
    file.categories = inScreen(repeated(count, [](const std::string& i) {
      return "<Display DataName='D" + i + "' RequestName='R'/>";
    }));
    return file;
  });
}

/// Data D0 in every request, on every screen.
FileText usedEverywhere(int count) {
  FileText file;
  file.datas = datas(1);
  file.requests = repeated(count, [](const std::string& i) {
    return "<Request Name='R" + i + "'><Sent><DataItem Name='D0' Ref='1'/></Sent></Request>";
  });
  file.categories = inScreen(repeated(count, [](const std::string& i) {
    return "<Display DataName='D0' RequestName='R" + i + "'/>";
  }));
  file.devices = repeated(count, [](const std::string& i) {
    return "<Device Name='V" + i + "'><DeviceData Name='D0'/></Device>";
  });
  return file;
}

TEST(Growth, OfRenamingAndDeletingADataUsedEverywhere) {
  expectLinearTime([](int count) {
    Ecu ecu;
    ecu.load(usedEverywhere(count));
    return secondsOf([&] {
      ecu.target().RenameData(ecu.target().datas()->Item(1), "N");
      ecu.target().DeleteDataByName("N");
      EXPECT_TRUE(ecu.target().GetScreensUsingData("N").empty());
    });
  });
}

TEST(Growth, OfDeletingAllRequestsAndAllPositions) {
  for (const bool whole : {true, false}) {
    expectLinearTime([&](int count) {
      Ecu ecu;
      ecu.load(usedEverywhere(count));
      std::vector<RequestItem*> requests;
      std::vector<DataPositionItem*> positions;
      for (RequestItem* request : *ecu.target().Requests()) {
        requests.push_back(request);
        for (DataPositionItem* position : *request->DataPositions)
          positions.push_back(position);
      }
      return secondsOf([&] {
        whole ? ecu.target().DeleteRequests(requests) : ecu.target().DeleteDataPositions(positions);
        EXPECT_TRUE(ecu.target().GetScreensUsingData("D0").empty());
      });
    });
  }
}

TEST(Growth, OfDeletingARequestUsedEverywhere) {
  expectLinearTime([](int count) {
    Ecu ecu;
    FileText file;
    file.requests = request("");
    file.categories = inScreen(repeated(count, [](const std::string&) {
      return "<Send RequestName='R'/><Display RequestName='R'/>";
    }));
    file.devices = repeated(
        count, [](const std::string& i) { return "<Device Name='V" + i + "' FreezeFrame='R'/>"; });
    ecu.load(file);
    return secondsOf([&] {
      ecu.target().DeleteRequest(ecu.target().Requests()->Item(1));
      EXPECT_TRUE(ecu.target().GetDeviceUsingRequest("R").empty());
    });
  });
}

} // namespace
} // namespace kelmar::testing
