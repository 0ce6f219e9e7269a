// The definition of a report: a text file that people and programs load, change, save and render.
//
//   ReportDefinition definition;
//   definition.load("ventas.informe");
//   definition.setTitle("Ventas de enero");
//   definition.save("ventas.informe");
//   definition.render(connection, "ventas.pdf");
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "qvn/data/connection.h"
#include "qvn/reports/definition_text.h"
#include "qvn/reports/report.h"

namespace qvn::reports {

struct RenderSettings {
  OnExisting onExisting = OnExisting::Refuse;
  ReportObserver observe = nullptr;
};

/// What a method refuses leaves the definition as it was.
class ReportDefinition final : public Object {
 public:
  /// A definition without title, query, groups and columns.
  ReportDefinition() = default;

  /// Takes the place of what was held.
  /// @throws RuntimeError  321 for what is no definition, with file and line number; 53, 70, ... when the file cannot
  /// be
  ///         read
  void load(std::string_view path);
  /// What was loaded and not changed is written as it was, comments too; a file of that path is replaced when the new
  /// one is complete. Throws RuntimeError 5 without a query, 58 when there is a file that is not to be replaced, 61
  /// when the disk is full, or what else the system refuses.
  void save(std::string_view path, OnExisting onExisting = OnExisting::Replace) const;

  /// As load() and save(), from and to a text. read() throws RuntimeError 321 with the line number.
  void read(std::string_view text);
  [[nodiscard]] std::string text() const { return text_.text(); }

  [[nodiscard]] std::string title() const { return reportValue("titulo"); }
  [[nodiscard]] std::string subtitle() const { return reportValue("subtitulo"); }
  /// Its lines without the blanks around them.
  [[nodiscard]] std::string query() const { return reportValue(kQueryKey); }
  /// Letter paper when the definition says nothing.
  [[nodiscard]] Paper paper() const;
  // All throw RuntimeError 5 for a value that a definition cannot hold.
  void setTitle(std::string_view title) { setReportValue("titulo", title); }
  void setSubtitle(std::string_view subtitle) { setReportValue("subtitulo", subtitle); }
  void setQuery(std::string_view query) { setReportValue(kQueryKey, query); }
  void setPaper(Paper paper) { setReportValue("papel", nameOf(paper)); }

  /// From the outermost. Groups of a definition always have subtotals.
  [[nodiscard]] std::vector<GroupSettings> groups() const;
  /// Inside the others. Throws RuntimeError 457 when the field makes a group already, 5 for what a definition cannot
  /// hold.
  void addGroup(const GroupSettings& group);
  /// Does nothing when the field makes no group.
  void removeGroup(std::string_view field);

  [[nodiscard]] std::vector<ColumnSettings> columns() const;
  /// Behind the others, or in the place of the column of the same field. Throws RuntimeError 5 for what a definition
  /// cannot hold.
  void setColumn(const ColumnSettings& column);
  /// Does nothing when the field is no column.
  void removeColumn(std::string_view field);

  [[nodiscard]] ReportPtr makeReport() const;

  /// Runs the query and shows its rows in a file, as newReportFile() and Report::run do, and throws what they throw;
  /// RuntimeError 5 without a query or when it gives no rows to show.
  bool render(const data::ConnectionPtr& connection, std::string_view path, const RenderSettings& settings = {}) const;

 private:
  [[nodiscard]] std::string reportValue(std::string_view key) const;
  void setReportValue(std::string_view key, std::string_view value);
  [[nodiscard]] DefinitionSection* find(std::string_view section, std::string_view field);
  void remove(std::string_view section, std::string_view field);
  void requireQuery() const;

  DefinitionText text_;
};
using ReportDefinitionPtr = std::shared_ptr<ReportDefinition>;

}  // namespace qvn::reports
