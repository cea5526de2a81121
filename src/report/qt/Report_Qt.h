// The Qt back end of the report: the recorded rich-text document as a Qt text
// document for the screen, the printer and PDF, and the pictures of the
// diagrams drawn by the diagram routines on an image.
#pragma once

#include <QString>
#include <QTextDocument>
#include <string>

#include "model/BeamModel.h"
#include "report/Report.h"
#include "report/RichText.h"

class QPagedPaintDevice;

namespace zarvek {

// The family that stands for a font name of the report: "Arial" is Liberation
// Sans, "Courier New" Liberation Mono.
QString Report_FontFamily(const std::string& name);

// Fills `doc` (cleared first) with the document. Lengths in pixels at 96 dpi:
// tab stops at their fraction of the text width (Report_TextWidth / 15),
// pictures at their size in twips / 15.
void Fill_TextDocument(QTextDocument& doc, const Rich_Document& rich);

// Fills `doc` as a paginated A4 page with 2 cm margins, the way it prints.
void Fill_PageDocument(QTextDocument& doc, const Rich_Document& rich);

// Prints the document on a paged device (printer or PDF writer), page after
// page, A4 with 2 cm margins.
void Print_Report(const Rich_Document& rich, QPagedPaintDevice& device);

// Writes the document as a PDF file (written beside and renamed, so an
// existing file is never half overwritten). False with a reason on failure.
bool Export_Pdf(const Rich_Document& rich, const QString& path, QString* error = nullptr);

// Writes the RTF of the document the same safe way.
bool Save_Rtf(const Rich_Document& rich, const QString& path, QString* error = nullptr);

// The pictures of the report drawn from a copy of the record: the beam and
// its loads, the section, the internal forces and the mode, each at its
// design size, rendered at twice the screen resolution so that they stay
// sharp on paper. External mode draws without the entries of the main window.
Report_PictureSource Qt_ReportPictures(const BeamModel& m, bool ExternalMode = false);

// The whole report of the record, dated now in the local time.
Rich_Document Build_Report(const BeamModel& m, const std::string& Language_Code,
                           const Report_PictureSource& pictures);

}  // namespace zarvek
