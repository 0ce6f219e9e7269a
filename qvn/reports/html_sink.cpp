#include "qvn/reports/html_sink.h"

#include <string_view>

namespace qvn::reports {
namespace {

using Kind = ReportLine::Kind;

constexpr std::string_view kStyle = R"(<style>
body{font:14px/1.4 "DejaVu Sans",Arial,sans-serif;margin:2em;color:#222}
h1{font-size:1.4em;margin:0}
p{margin:.2em 0 1em;color:#555}
table{border-collapse:collapse}
th,td{padding:.15em .7em;text-align:left;vertical-align:top}
thead th{border-bottom:2px solid #444;background:#fff;position:sticky;top:0}
.r{text-align:right;font-variant-numeric:tabular-nums}
.c{text-align:center}
.g th{padding-top:.7em}
.s td{border-top:1px solid #888;font-weight:bold}
.t td{border-top:3px double #444;font-weight:bold}
@media print{body{margin:0}thead th{position:static}tr{break-inside:avoid}}
</style>
)";

void appendEscaped(std::string& html, std::string_view text) {
  for (const char c : text) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default:
        html += c;
    }
  }
}

std::string_view classOf(Alignment alignment) {
  switch (alignment) {
    case Alignment::Automatic:
    case Alignment::Left:
      return "";
    case Alignment::Right:
      return " class=\"r\"";
    case Alignment::Center:
      return " class=\"c\"";
  }
  return "";
}

std::string_view rowTag(Kind kind) {
  switch (kind) {
    case Kind::GroupStart:
      return "<tr class=\"g\">";
    case Kind::Subtotal:
      return "<tr class=\"s\">";
    case Kind::Total:
      return "<tr class=\"t\">";
    case Kind::Row:
    case Kind::Note:
      return "<tr>";
  }
  return "<tr>";
}

}  // namespace

void HtmlSink::begin(const ReportHead& head) {
  head_ = head;
  text_ = "<!DOCTYPE html>\n<html lang=\"es\">\n<head>\n<meta charset=\"utf-8\">\n<title>";
  appendEscaped(text_, head.title);
  text_.append("</title>\n").append(kStyle).append("</head>\n<body>\n<h1>");
  appendEscaped(text_, head.title);
  text_ += "</h1>\n";
  if (!head.subtitle.empty()) {
    text_ += "<p>";
    appendEscaped(text_, head.subtitle);
    text_ += "</p>\n";
  }
  text_ += "<table>\n<thead>\n<tr>";
  for (const HeadColumn& column : head.columns) {
    text_.append("<th scope=\"col\"").append(classOf(column.alignment)).append(">");
    appendEscaped(text_, column.heading);
    text_ += "</th>";
  }
  text_ += "</tr>\n</thead>\n<tbody>\n";
  file_->write(text_);
}

void HtmlSink::line(const ReportLine& line) {
  text_ = rowTag(line.kind);
  switch (line.kind) {
    case Kind::GroupStart:
    case Kind::Note:
      addCaption(line, head_.columns.size());
      break;
    case Kind::Row:
      addCells(line, 0);
      break;
    case Kind::Subtotal:
    case Kind::Total:
      addSums(line);
      break;
  }
  text_ += "</tr>\n";
  file_->write(text_);
}

void HtmlSink::addCaption(const ReportLine& line, std::size_t columns) {
  const std::string_view element = line.kind == Kind::GroupStart ? "th" : "td";
  text_.append("<").append(element);
  if (columns > 1) text_.append(" colspan=\"").append(std::to_string(columns)).append("\"");
  // One step for each group around this one.
  if (line.level > 0) text_.append(" style=\"padding-left:").append(std::to_string(line.level * 2)).append("em\"");
  text_ += '>';
  appendEscaped(text_, line.caption);
  text_.append("</").append(element).append(">");
}

void HtmlSink::addCells(const ReportLine& line, std::size_t first) {
  for (std::size_t i = first; i < line.cells.size(); ++i) {
    text_.append("<td").append(classOf(head_.columns[i].alignment)).append(">");
    appendEscaped(text_, line.cells[i].text);
    text_ += "</td>";
  }
}

// The caption takes the place of the columns before the first sum, or a row of its own when there are none.
void HtmlSink::addSums(const ReportLine& line) {
  const std::size_t first = firstNumber(line);
  addCaption(line, first == 0 ? head_.columns.size() : first);
  if (first == 0) text_.append("</tr>\n").append(rowTag(line.kind));
  addCells(line, first);
}

void HtmlSink::end() {
  file_->write("</tbody>\n</table>\n</body>\n</html>\n");
  file_->publish();
  file_.reset();
}

}  // namespace qvn::reports
