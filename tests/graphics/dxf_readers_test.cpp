// Two independent programs read our DXF files: ezdxf and LibreCAD. Where one isn't installed its test is
// skipped.
#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/wait.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "base/text.h"
#include "base/text_file.h"
#include "figures.h"
#include "graphics/dxf.h"
#include "model/deck.h"
#include "model/model_state.h"
#include "temporary_folder.h"

namespace zorlan {
namespace {

using Kind = DrawOperation::Kind;

struct Finished {
  int code = -1;
  std::string output;
};
Finished RunCommand(const std::string& command) {
  Finished run;
  FILE* const pipe = ::popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) return run;
  std::array<char, 4096> room;
  for (std::size_t n = 0; (n = std::fread(room.data(), 1, room.size(), pipe)) > 0;)
    run.output.append(room.data(), n);
  const int status = ::pclose(pipe);
  run.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

bool Installed(const std::string& command) {
  return RunCommand(command).code == 0;
}

// Extents by hand: x 1000 to 9000, y 1000 to 5000 + 320. The larger is 8000, the middle 3160: the lower edge
// of the window is y = 7160.
constexpr const char* kList =
    "LINE, MODEL, 1000, 1000, 9000, 1000, 255\r\n"
    "LINE, MODEL, 1000, 1000, 1000, 5000, 65280\r\n"
    "CIRCLE, KAJYU, 5000, 3000, 1000, 16711680\r\n"
    "TEXT, TITLE_TXT, 3000, 5000, タイトル：表示 (ﾓｰﾒﾝﾄ図), 2560, 320, 16711935\r\n"
    "TEXTR, MOMENT_TXT, 8000, 4000, -12.34, 1000, 400, 90, 16776960\r\n";

class DxfReaders : public testing::Test {
 protected:
  /// The list as a DXF file.
  std::string FileOf(const std::string& list, const std::string& name = "page") const {
    ReplaceTextFile(folder_.Path() + name + ".tmp", list);
    EXPECT_TRUE(WriteDXF(folder_.Path() + name + ".tmp", folder_.Path() + name + ".dxf"));
    return folder_.Path() + name + ".dxf";
  }
  TemporaryFolder folder_;
};

class Ezdxf : public DxfReaders {
 protected:
  void SetUp() override {
    if (!Installed("/usr/bin/python3 -c 'import ezdxf'")) GTEST_SKIP() << "python3-ezdxf isn't installed";
  }
  /// What read_dxf.py prints of the files.
  std::string Read(const std::vector<std::string>& files) const {
    std::string command = "/usr/bin/python3 -B '" ZORLAN_SOURCE_DIR "/tests/graphics/read_dxf.py'";
    for (const std::string& file : files) command += " '" + file + "'";
    return RunCommand(command).output;
  }
};

TEST_F(Ezdxf, ReadsGeometryLayersColoursAndTextsWithACleanAudit) {
  EXPECT_EQ(Read({FileOf(kList)}),
            "AC1009 cp932\n"
            "layer MODEL 1\n"
            "layer KAJYU 5\n"
            "layer TITLE_TXT 6\n"
            "layer MOMENT_TXT 4\n"
            "LINE MODEL 1 1000.000 6160.000 9000.000 6160.000\n"
            "LINE MODEL 3 1000.000 6160.000 1000.000 2160.000\n"
            "CIRCLE KAJYU 5 5000.000 4160.000 1000.000\n"
            "TEXT TITLE_TXT 6 3000.000 2160.000 320.000 0.0 STYLE2 'タイトル：表示 (ﾓｰﾒﾝﾄ図)'\n"
            "TEXT MOMENT_TXT 4 8400.000 3159.999 400.000 90.0 STYLE2 '-12.34'\n"
            "end\n");
}

TEST_F(Ezdxf, ReadsAnEmptyDrawing) {
  EXPECT_EQ(Read({FileOf("")}), "AC1009 cp932\nend\n");
}

TEST_F(Ezdxf, ReadsAThousandLayers) {
  std::string list, expected = "AC1009 cp932\n", entities;
  for (int layer = 1; layer <= kMaxDxfLayers; ++layer) {
    const std::string name = "L" + std::to_string(layer);
    list += "LINE, " + name + ", 0, 0, 10, 10, 0\r\n";
    expected += "layer " + name + " 7\n";
    entities += "LINE " + name + " 7 0.000 10.000 10.000 0.000\n";
  }
  EXPECT_EQ(Read({FileOf(list)}), expected + entities + "end\n");
}

/// What ezdxf shall make of a list: an entity for every operation, every text as it was.
std::vector<std::string> EntitiesOf(const std::vector<DrawOperation>& list) {
  constexpr std::array kTypes = {"LINE ", "CIRCLE ", "TEXT ", "TEXT "};
  std::vector<std::string> entities;
  for (const DrawOperation& operation : list) {
    const bool text = operation.kind == Kind::Text || operation.kind == Kind::TextRotated;
    entities.push_back(kTypes[static_cast<std::size_t>(operation.kind)] + operation.layer + " " +
                       std::to_string(ColourToACI(operation.colour)) +
                       (text ? " '" + std::string(NoSpc(operation.text)) + "'" : ""));
  }
  return entities;
}

/// The same of the next file that ezdxf printed, without the numbers of the geometry; what is neither an
/// entity nor a layer goes to `others`.
std::vector<std::string> TakeEntities(std::string_view& output, std::vector<std::string>& others) {
  std::vector<std::string> entities;
  for (auto line = TakeLine(output); line && *line != "end"; line = TakeLine(output)) {
    if (line->starts_with("layer ")) continue;
    if (!line->starts_with("LINE ") && !line->starts_with("CIRCLE ") && !line->starts_with("TEXT ")) {
      others.emplace_back(*line);
      continue;
    }
    std::size_t end = line->find(' ');
    for (int field = 0; field < 2; ++field) end = std::min(line->find(' ', end + 1), line->size());
    const std::size_t text = std::min(line->find(" '"), line->size());
    entities.push_back(std::string(line->substr(0, end)) + std::string(line->substr(text)));
  }
  return entities;
}

/// A model's figure with results that nobody has computed.
Figure FigureWithResults(const std::string& deck) {
  ReadDeck(deck, /*checkMode=*/false);
  Figure figure = test::FigureOf(InpModel);
  FigureModel& model = figure.model;
  for (std::size_t k = 0; k < model.elements.size(); ++k) {
    const double v = static_cast<double>(k) - 3;
    model.StressTable.push_back({-v, v, 2 * v, v / 3, v, v, -v});
    model.ratios.push_back(static_cast<double>(k % 13) / 10);
  }
  model.DisplacementTable.assign(model.nodes.size(), {0.01, -0.02, 0});
  return figure;
}

TEST_F(Ezdxf, ReadsEveryKindOfFigureOfEverySampleModel) {
  const test::Messages messages;
  std::vector<std::string> files;
  std::vector<std::vector<std::string>> expected;
  for (const auto& entry : std::filesystem::directory_iterator(ZORLAN_SOURCE_DIR "/data/DATA/例題－１.zor")) {
    if (entry.path().extension() != ".inp") continue;
    Figure figure = FigureWithResults(PathText(entry.path()));
    for (int kind = kModelFigure; kind <= kRcRatioFigure; ++kind) {
      test::Recorder page = test::PageRecorder(11906, 16838);
      Plot plot(page);
      plot.RecordDrawing = true;
      DrawFrameFigure(plot, "", figure, kind);
      files.push_back(FileOf(DrawingListText(plot.drawingList), "page" + std::to_string(files.size())));
      expected.push_back(EntitiesOf(plot.drawingList));
    }
  }
  ASSERT_GE(files.size(), 8U * 8U);
  const std::string output = Read(files);
  std::string_view rest = output;
  for (std::size_t k = 0; k < files.size(); ++k) {
    std::vector<std::string> others;
    EXPECT_EQ(TakeEntities(rest, others), expected[k]) << files[k];
    EXPECT_EQ(others, std::vector<std::string>{"AC1009 cp932"}) << files[k];
  }
  EXPECT_TRUE(messages.texts.empty());
}

/// A picture in the plain pixel form "P6".
struct Picture {
  int width = 0, height = 0;
  std::string pixels;
};
Picture ReadPicture(const std::string& path) {
  Picture picture;
  const std::string bytes = ReadBytes(path);
  int begin = 0;
  if (std::sscanf(bytes.c_str(), "P6 %d %d 255%n", &picture.width, &picture.height, &begin) == 2)
    picture.pixels = bytes.substr(static_cast<std::size_t>(begin) + 1);
  return picture;
}

/// The smallest box around all pixels of a colour.
struct Box {
  int left = 1 << 20, top = 1 << 20, right = -1, bottom = -1;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
};
Box BoxOf(const Picture& picture, Rgb colour) {
  Box box;
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < picture.width; ++x) {
      const auto at = static_cast<std::size_t>(3 * (y * picture.width + x));
      const auto part = [&](std::size_t k) { return static_cast<unsigned char>(picture.pixels[at + k]); };
      if (ColourOf(part(0), part(1), part(2)) != colour) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x), std::max(box.bottom, y)};
    }
  return box;
}

class LibreCad : public DxfReaders {
 protected:
  void SetUp() override {
    if (!Installed("command -v librecad") || !Installed("command -v pdftoppm"))
      GTEST_SKIP() << "librecad or poppler-utils isn't installed";
  }
  /// The drawing fitted to a page by LibreCAD, at 100 pixels to the inch.
  Picture Print(const std::string& dxf) const {
    const std::string quoted = "'" + folder_.Path();
    MakeFolder(folder_.Path() + "home/");
    const Finished run = RunCommand("HOME=" + quoted + "home' XDG_RUNTIME_DIR=" + quoted +
                                    "home' QT_QPA_PLATFORM=offscreen timeout 60 librecad dxf2pdf -a -o " +
                                    quoted + "page.pdf' '" + dxf + "'");
    EXPECT_EQ(run.code, 0) << run.output;
    const Finished picture = RunCommand("pdftoppm -r 100 -singlefile -aa no -aaVector no " + quoted +
                                        "page.pdf' " + quoted + "page'");
    EXPECT_EQ(picture.code, 0) << picture.output;
    return ReadPicture(folder_.Path() + "page.ppm");
  }
};

// 8000 twips fill the width of the page: the red line tells how many pixels a twip has.
TEST_F(LibreCad, ShowsGeometryAndColours) {
  const Picture picture = Print(FileOf(kList));
  const Box red = BoxOf(picture, 0x0000FF), green = BoxOf(picture, 0x00FF00), blue = BoxOf(picture, 0xFF0000);
  ASSERT_GT(red.Width(), 700);
  const double pixels = red.Width() / 8000.0;
  EXPECT_LE(red.Height(), 2);

  EXPECT_LE(green.Width(), 2);
  EXPECT_NEAR(green.left, red.left, 2);
  EXPECT_NEAR(green.Height(), 4000 * pixels, 2);
  EXPECT_NEAR(green.top, red.bottom, 2);

  EXPECT_NEAR(blue.Width(), 2000 * pixels, 2);
  EXPECT_NEAR(blue.Height(), 2000 * pixels, 2);
  EXPECT_NEAR(blue.left, red.left + 3000 * pixels, 2);
  EXPECT_NEAR(blue.top, red.top + 1000 * pixels, 2);
}

// A text's box has its left upper corner at the text's point, and capitals fill its height.
TEST_F(LibreCad, SetsTextsInTheirBoxes) {
  const Picture picture =
      Print(FileOf("LINE, MODEL, 0, 0, 8000, 0, 255\r\n"
                   "TEXT, A_TXT, 1000, 1000, EEEE, 2000, 1000, 65280\r\n"
                   "TEXTR, B_TXT, 5000, 4000, EEEE, 2000, 1000, 90, 16711680\r\n"));
  const Box red = BoxOf(picture, 0x0000FF), upright = BoxOf(picture, 0x00FF00),
            turned = BoxOf(picture, 0xFF0000);
  ASSERT_GT(red.Width(), 700);
  const double pixels = red.Width() / 8000.0, slack = 150 * pixels;
  EXPECT_NEAR(upright.left, red.left + 1000 * pixels, slack);
  EXPECT_NEAR(upright.top, red.top + 1000 * pixels, slack);
  EXPECT_NEAR(upright.bottom, red.top + 2000 * pixels, slack);

  EXPECT_NEAR(turned.left, red.left + 5000 * pixels, slack);
  EXPECT_NEAR(turned.right, red.left + 6000 * pixels, slack);
  EXPECT_NEAR(turned.bottom, red.top + 4000 * pixels, slack);
  EXPECT_GT(turned.Height(), turned.Width());
}

// Without their own colours the entities show those of their layers: the lines of MODEL are red by the first.
TEST_F(LibreCad, KnowsTheLayersAndTheirColours) {
  const std::string path = FileOf(kList);
  std::string dxf = ReadBytes(path);
  const std::size_t entities = dxf.find("ENTITIES");
  for (std::size_t at = dxf.find("\r\n62\r\n", entities); at != std::string::npos;
       at = dxf.find("\r\n62\r\n", at))
    dxf.erase(at, dxf.find("\r\n", at + 6) - at);
  ReplaceBytes(path, dxf);
  const Picture picture = Print(path);
  const Box red = BoxOf(picture, 0x0000FF), green = BoxOf(picture, 0x00FF00), blue = BoxOf(picture, 0xFF0000);
  ASSERT_GT(red.Width(), 700);
  EXPECT_NEAR(red.Height(), 4000 * red.Width() / 8000.0, 2);
  EXPECT_EQ(green.right, -1);
  EXPECT_NEAR(blue.Width(), 2000 * red.Width() / 8000.0, 2);
}

TEST_F(LibreCad, TakesAnEmptyDrawing) {
  EXPECT_GT(Print(FileOf("")).width, 0);
}

}  // namespace
}  // namespace zorlan
