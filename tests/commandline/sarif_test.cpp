// What code hosts know a finding by: its address and its fingerprint.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "machine.h"

namespace kolvane::commandline {
namespace {

class Sarif : public testing::Test {
 protected:
  // "p%231/modA.bas:2 95AADD4997EA6907:1" for each finding.
  std::vector<std::string> findings(const std::string& path, const std::string& code) {
    machine_.files.replace(path, "Attribute VB_Name = \"modA\"\r\n" + code);
    const std::string printed = machine_.run("audit variables " + path + " --sarif");
    std::vector<std::string> found;
    const auto run = nlohmann::json::parse(printed.substr(0, printed.rfind('['))).at("runs").at(0);
    for (const auto& result : run.at("results")) {
      const auto& place = result.at("locations").at(0).at("physicalLocation");
      found.push_back(place.at("artifactLocation").at("uri").get<std::string>() + ":" +
                      std::to_string(place.at("region").at("startLine").get<int>()) + " " +
                      result.at("partialFingerprints").at("findingIdentity/v1").get<std::string>());
    }
    return found;
  }

 private:
  Machine machine_;
};

using Texts = std::vector<std::string>;

TEST_F(Sarif, AFindingKeepsItsFingerprintWhereLinesFilesAndSpellingMove) {
  EXPECT_EQ(findings("/p#1/modA.bas", "Sub A()\r\nDim lngOne As Long\r\nEnd Sub\r\n"),
            (Texts{"p%231/modA.bas:2 95AADD4997EA6907:1"}));
  EXPECT_EQ(findings("/other.bas", "' moved\r\n\r\nsub a()\r\nBeep\r\nDim LngOne As Long\r\nEnd Sub\r\n"),
            (Texts{"other.bas:4 95AADD4997EA6907:1"}));
}

TEST_F(Sarif, EqualFindingsAreNumbered) {
  EXPECT_EQ(
      findings("/a.bas",
               "Sub A()\r\n#If x Then\r\nDim lngOne As Long\r\n#Else\r\nDim lngOne As Long, lngTwo\r\n"
               "#End If\r\nEnd Sub\r\n"),
      (Texts{"a.bas:2 95AADD4997EA6907:1", "a.bas:2 95AADD4997EA6907:2", "a.bas:2 5CAB664A0891A4D1:1"}));
}

}  // namespace
}  // namespace kolvane::commandline
