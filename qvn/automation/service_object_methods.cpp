#include "qvn/automation/method.h"
#include "qvn/automation/sections.h"
#include "qvn/barcode/oden_barcode.h"
#include "qvn/base/path.h"
#include "qvn/devices/folder/folder_link.h"

namespace qvn::automation {
namespace {

using barcode::odenBarcode;
using barcode::Picture;
using devices::QvnMobile;
using dialogs::Progress;
using exports::SpreadsheetExport;
using system::DOSOutputs;
using system::Ping;

std::shared_ptr<DOSOutputs> newDosOutputs(const Session& session) {
  auto console = std::make_shared<DOSOutputs>(session.dialogs);
  // The listener must not keep the object alive that keeps the listener.
  console->onReceiveOutputs([&session, console = console.get()](std::string_view piece) {
    Json event = objectEvent("ReceiveOutputs", *console, session);
    event.add("Outputs", toJson(piece));
    session.conversation.tell(event);
  });
  return console;
}

// For a device that is mounted as a folder.
std::shared_ptr<QvnMobile> newMobileOnFolder(std::string_view folder) {
  return std::make_shared<QvnMobile>(std::make_shared<devices::FolderLink>(hostPath(folder)));
}

std::shared_ptr<CanvasObject> newCanvas() { return std::make_shared<CanvasObject>(barcode::newPictureCanvas()); }
barcode::PicturePtr pictureOf(CanvasObject& canvas) { return canvas.canvas().picture({}); }

void drawCode128(const Session& session, CanvasObject& canvas, std::int16_t zBarH, std::string_view BarText,
                 bool HasCaption) {
  odenBarcode(*session.dialogs).Code128(canvas.canvas(), zBarH, BarText, HasCaption);
}
void drawCode39(const Session& session, CanvasObject& canvas, std::int16_t zBarH, std::string_view BarText,
                bool zWithCheckSum, bool HasCaption) {
  odenBarcode(*session.dialogs).Code39(canvas.canvas(), zBarH, BarText, zWithCheckSum, HasCaption);
}
void drawEan13(const Session& session, CanvasObject& canvas, std::int16_t zBarH, std::string_view BarText,
               bool HasCaption) {
  odenBarcode(*session.dialogs).EAN13(canvas.canvas(), zBarH, BarText, HasCaption);
}
void drawEan8(const Session& session, CanvasObject& canvas, std::int16_t zBarH, std::string_view BarText,
              bool HasCaption) {
  odenBarcode(*session.dialogs).EAN8(canvas.canvas(), zBarH, BarText, HasCaption);
}

void openWorkbook(SpreadsheetExport& excel, std::string_view path, bool replaces) {
  using OnExisting = SpreadsheetExport::OnExisting;
  excel.Open(path, replaces ? OnExisting::Replace : OnExisting::Refuse);
}
bool addSheet(SpreadsheetExport& excel, const data::RecordsetPtr& rows, std::string name,
              std::vector<exports::ColumnSettings> columns) {
  return excel.AddSheet(rows, {.name = std::move(name), .columns = std::move(columns)});
}
Json reportOf(SpreadsheetExport& excel) {
  Json report = Json::object();
  report.add("rows", excel.Report().rows);
  report.add("sheets", excel.Report().sheets);
  report.add("forcedTexts", excel.Report().forcedTexts);
  report.add("cutTexts", excel.Report().cutTexts);
  return report;
}

std::int32_t widthOf(Picture& picture) { return picture.drawing().width; }
std::int32_t heightOf(Picture& picture) { return picture.drawing().height; }

}  // namespace

// NOLINTNEXTLINE(readability-function-size): a table
std::vector<Section> serviceObjectSections() {
  return {
      {"Objects: the console runner",
       {"qvn/system/dos_outputs.h"},
       {
           method<&newDosOutputs>("DOSOutputs.New"),
           method<&DOSOutputs::CommandLine>("DOSOutputs.CommandLine", "this"),
           method<&DOSOutputs::setCommandLine>("DOSOutputs.SetCommandLine", "this", "CommandLine"),
           method<&DOSOutputs::Outputs>("DOSOutputs.Outputs", "this"),
           method<&DOSOutputs::ExecuteCommand>("DOSOutputs.ExecuteCommand", "this", "CommandLine=\"\""),
           method<&DOSOutputs::ExecuteToFile>("DOSOutputs.ExecuteToFile", "this", "CommandLine", "fileName",
                                              "strError=\"\""),
           method<&DOSOutputs::OutLine>("DOSOutputs.OutLine", "this", "fileName", "text"),
       }},
      {"Objects: workbooks and progress",
       {"qvn/exports/spreadsheet.h", "qvn/dialogs/progress.h"},
       {
           method<&openWorkbook>("Excel.Open", "this", "Path", "Replace=false"),
           method<&addSheet>("Excel.AddSheet", "this", "Rows", "Name=\"\"", "Columns=[]"),
           method<&SpreadsheetExport::Close>("Excel.Close", "this"),
           method<&SpreadsheetExport::Cancel>("Excel.Cancel", "this"),
           method<&reportOf>("Excel.Report", "this"),
           method<&Progress::setTitle>("Progress.SetTitle", "this", "Title"),
           method<&Progress::setText>("Progress.SetText", "this", "Text"),
           method<&Progress::setTotal>("Progress.SetTotal", "this", "Total"),
           method<&Progress::Show>("Progress.Show", "this"),
           method<&Progress::Step>("Progress.Step", "this", "Count=1"),
           method<&Progress::MoveTo>("Progress.MoveTo", "this", "Done"),
           method<&Progress::Done>("Progress.Done", "this"),
           method<&Progress::Total>("Progress.Total", "this"),
           method<&Progress::Hide>("Progress.Hide", "this"),
       }},
      {"Objects: the network",
       {"qvn/system/ping.h"},
       {
           method<&Ping::DoPing>("Ping.DoPing", "this", "HostAddress"),
           method<&Ping::IP2Long>("Ping.IP2Long", "strAddress"),
           method<&Ping::pingGetHostByName>("Ping.pingGetHostByName", "this", "Host"),
           method<&Ping::lastIP>("Ping.lastIP", "this"),
           method<&Ping::IsHostSyncRunning>("Ping.IsHostSyncRunning"),
       }},
      {"Objects: handheld devices",
       {"qvn/devices/qvn_mobile.h", "qvn/devices/windows_ce.h"},
       {
           method<&newMobileOnFolder>("QvnMobile.OnFolder", "Folder"),
           method<&QvnMobile::Connect>("QvnMobile.Connect", "this"),
           method<&QvnMobile::CopyFileFromPocket>("QvnMobile.CopyFileFromPocket", "this", "SourceFile", "DestinyFile"),
           method<&QvnMobile::CopyFileToPocket>("QvnMobile.CopyFileToPocket", "this", "SourceFile", "DestinyFile"),
           method<&QvnMobile::Disconnect>("QvnMobile.Disconnect", "this"),
           method<&QvnMobile::Version>("QvnMobile.Version", "this"),
           method<&QvnMobile::IsConnected>("QvnMobile.IsConnected", "this"),
           method<&QvnMobile::DeleteFileFromPocket>("QvnMobile.DeleteFileFromPocket", "this", "Path"),
           method<&QvnMobile::ExistFileOnPocket>("QvnMobile.ExistFileOnPocket", "this", "Path"),
           method<&QvnMobile::ceCommand>("QvnMobile.ceCommand", "this", "strProcess", "strParameters"),
       }},
      {"Objects: barcodes",
       {"qvn/barcode/oden_barcode.h", "qvn/barcode/picture.h"},
       {
           method<&newCanvas>("Canvas.New"),
           method<&pictureOf>("Canvas.Picture", "this"),
           method<&drawCode128>("odenBarcode.Code128", "zObj", "zBarH", "BarText", "HasCaption"),
           method<&drawCode39>("odenBarcode.Code39", "zObj", "zBarH", "BarText", "zWithCheckSum", "HasCaption"),
           method<&drawEan13>("odenBarcode.EAN13", "zObj", "zBarH", "BarText", "HasCaption"),
           method<&drawEan8>("odenBarcode.EAN8", "zObj", "zBarH", "BarText", "HasCaption"),
           method<&widthOf>("Picture.Width", "this"),
           method<&heightOf>("Picture.Height", "this"),
           method<&Picture::save>("Picture.Save", "this", "Path"),
       }},
  };
}

}  // namespace qvn::automation
