#include "report/qt/Report_Qt.h"

#include "design/DesignModel.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>
#include <QUrl>
#include <algorithm>
#include <ctime>

#include "analysis/Calculer_Efforts.h"
#include "diagrams/Diagrams.h"
#include "diagrams/qt/QtSurface.h"
#include "foundation/Mod_Zarvek.h"

namespace zarvek {

namespace {

constexpr double Twips_Per_Px = 15.0;  // 96 dpi
// Block property: the paragraph keeps with the next one.
constexpr int Keep_With_Next_Property = QTextFormat::UserProperty + 1;

QColor Colour_Of(Rich_Colour c) { return QColor(c & 0xFF, c >> 8 & 0xFF, c >> 16 & 0xFF); }

QTextCharFormat Char_Format(const Rich_CharFormat& f) {
  QTextCharFormat cf;
  cf.setFontFamilies({Report_FontFamily(f.font)});
  cf.setFontPointSize(f.size);
  cf.setFontWeight(f.bold ? QFont::Bold : QFont::Normal);
  cf.setFontItalic(f.italic);
  cf.setFontUnderline(f.underline);
  cf.setForeground(Colour_Of(f.colour));
  return cf;
}

QTextBlockFormat Block_Format(const Rich_Paragraph& p, double textWidthPx) {
  QTextBlockFormat bf;
  bf.setAlignment(p.alignment == Align_Centre  ? Qt::AlignHCenter
                  : p.alignment == Align_Right ? Qt::AlignRight
                                               : Qt::AlignLeft);
  std::vector<double> stops = p.tabs;
  std::sort(stops.begin(), stops.end());
  QList<QTextOption::Tab> tabs;
  for (double t : stops) tabs.append(QTextOption::Tab(t * textWidthPx, QTextOption::LeftTab));
  bf.setTabPositions(tabs);
  if (p.keep_with_next) bf.setProperty(Keep_With_Next_Property, true);
  return bf;
}

// Writes through a file beside the target, renamed into place.
bool Write_Beside(const QString& path, const QByteArray& bytes, QString* error) {
  const std::string content(bytes.constData(), bytes.size());
  if (Write_File_Atomic(path.toStdString(), content)) return true;
  if (error) *error = QFileInfo(path).absoluteFilePath() + ": the file can't be written";
  return false;
}

std::string Png_Bytes(const QImage& img) {
  QByteArray bytes;
  QBuffer buf(&bytes);
  buf.open(QIODevice::WriteOnly);
  img.save(&buf, "PNG");
  return std::string(bytes.constData(), bytes.size());
}

}  // namespace

QString Report_FontFamily(const std::string& name) {
  if (name == "Arial") return QStringLiteral("Liberation Sans");
  if (name == "Courier New") return QStringLiteral("Liberation Mono");
  if (name == "Times New Roman") return QStringLiteral("Liberation Serif");
  return QString::fromStdString(name);
}

void Fill_TextDocument(QTextDocument& doc, const Rich_Document& rich) {
  doc.clear();
  QFont base(Report_FontFamily(rich.normal.font));
  base.setPointSizeF(rich.normal.size);
  doc.setDefaultFont(base);
  const double widthPx = rich.text_width / Twips_Per_Px;
  for (size_t i = 0; i < rich.images.size(); ++i) {
    QImage img = QImage::fromData(reinterpret_cast<const uchar*>(rich.images[i].png.data()),
                                  (int)rich.images[i].png.size(), "PNG");
    doc.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("report:picture/%1").arg(i)), img);
  }
  QTextCursor cur(&doc);
  for (size_t i = 0; i < rich.paragraphs.size(); ++i) {
    const Rich_Paragraph& p = rich.paragraphs[i];
    const QTextCharFormat mark = Char_Format(p.runs.empty() ? rich.normal : p.runs.front().format);
    if (i == 0) {
      cur.setBlockFormat(Block_Format(p, widthPx));
      cur.setBlockCharFormat(mark);
    } else {
      cur.insertBlock(Block_Format(p, widthPx), mark);
    }
    for (const Rich_Run& r : p.runs) {
      switch (r.kind) {
        case Rich_Run::Text:
          cur.insertText(QString::fromUtf8(r.text.data(), (qsizetype)r.text.size()), Char_Format(r.format));
          break;
        case Rich_Run::Tab:
          cur.insertText(QStringLiteral("\t"), Char_Format(r.format));
          break;
        case Rich_Run::Image: {
          const Report_Picture& pic = rich.images[r.image];
          QTextImageFormat f;
          f.setName(QStringLiteral("report:picture/%1").arg(r.image));
          f.setWidth(pic.twips_width / Twips_Per_Px);
          f.setHeight(pic.twips_height / Twips_Per_Px);
          cur.insertImage(f);
          break;
        }
      }
    }
  }
}

void Fill_PageDocument(QTextDocument& doc, const Rich_Document& rich) {
  Fill_TextDocument(doc, rich);
  doc.setDocumentMargin(Report_Margin / Twips_Per_Px);
  doc.setPageSize(QSizeF(Report_PageWidth / Twips_Per_Px, Report_PageHeight / Twips_Per_Px));
  // A title and a key stay on the page of what follows them: where a page
  // ends inside such a group, the group starts the next page.
  const double H = doc.pageSize().height();
  auto keep = [](const QTextBlock& b) { return b.blockFormat().boolProperty(Keep_With_Next_Property); };
  // Where a paragraph's lines stand. A line that doesn't fit at the foot of
  // a page is moved to the next one while its block keeps its place: the
  // block's bounding rectangle would still say the old page.
  auto top = [&doc](const QTextBlock& b) {
    doc.documentLayout()->blockBoundingRect(b);  // lays the block out
    const QTextLayout* l = b.layout();
    return l->position().y() + (l->lineCount() ? l->lineAt(0).y() : 0.0);
  };
  auto bottom = [&doc](const QTextBlock& b) {
    const QRectF r = doc.documentLayout()->blockBoundingRect(b);
    const QTextLayout* l = b.layout();
    return l->lineCount() ? l->position().y() + l->lineAt(l->lineCount() - 1).rect().bottom() : r.bottom();
  };
  for (QTextBlock b = doc.begin(); b.isValid(); b = b.next()) {
    if (!keep(b)) continue;
    QTextBlock last = b;
    while (last.isValid() && keep(last)) last = last.next();
    if (!last.isValid()) break;
    const double from = top(b), to = bottom(last);
    const int pageFirst = (int)(from / H), pageEnd = (int)((to - 1) / H);
    if (pageFirst != pageEnd && to - from < 0.8 * H) {
      QTextCursor c(b);
      QTextBlockFormat f = b.blockFormat();
      f.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
      c.setBlockFormat(f);
    }
    b = last;
  }
}

void Print_Report(const Rich_Document& rich, QPagedPaintDevice& device) {
  QTextDocument doc;
  Fill_PageDocument(doc, rich);
  QPainter p(&device);
  if (!p.isActive()) return;
  // pictures of diagrams are thin lines: keep them lossless in a PDF
  p.setRenderHint(QPainter::LosslessImageRendering);
  p.setRenderHint(QPainter::Antialiasing);
  p.setRenderHint(QPainter::SmoothPixmapTransform);
  // the page is laid out at 96 dpi and scaled onto the device, page by page
  const QSizeF page = doc.pageSize();
  const double scale = std::min(device.width() / page.width(), device.height() / page.height());
  const int pages = doc.pageCount();
  for (int i = 0; i < pages; ++i) {
    if (i > 0) device.newPage();
    p.save();
    p.scale(scale, scale);
    p.translate(0, -i * page.height());
    QAbstractTextDocumentLayout::PaintContext ctx;
    ctx.clip = QRectF(0, i * page.height(), page.width(), page.height());
    ctx.palette.setColor(QPalette::Text, Qt::black);
    doc.documentLayout()->draw(&p, ctx);
    p.restore();
  }
}

bool Export_Pdf(const Rich_Document& rich, const QString& path, QString* error) {
  QByteArray bytes;
  {
    QBuffer buf(&bytes);
    buf.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buf);
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setPageMargins(QMarginsF(0, 0, 0, 0));
    pdf.setResolution(300);
    pdf.setTitle(QString::fromUtf8(Caption(3, 1).c_str()));
    pdf.setCreator(QString::fromUtf8(Program_Name()));
    Print_Report(rich, pdf);
  }
  if (bytes.isEmpty()) {
    if (error) *error = QStringLiteral("the PDF could not be made");
    return false;
  }
  return Write_Beside(path, bytes, error);
}

bool Save_Rtf(const Rich_Document& rich, const QString& path, QString* error) {
  const std::string rtf = Rtf_Of(rich);
  return Write_Beside(path, QByteArray(rtf.data(), (qsizetype)rtf.size()), error);
}

Report_PictureSource Qt_ReportPictures(const BeamModel& model, bool ExternalMode) {
  return [model, ExternalMode](Report_PictureKind kind) -> Report_Picture {
    double w = 0, h = 0;
    switch (kind) {
      case Report_PictureKind::Beam: w = Loads_Width; h = Loads_Height; break;
      case Report_PictureKind::Section: w = Section_Width; h = Section_Height; break;
      case Report_PictureKind::Forces: w = Forces_Width; h = Forces_Height; break;
      case Report_PictureKind::Mode: w = Eigenmode_Width; h = Eigenmode_Height; break;
    }
    constexpr double scale = 2;  // device pixels a screen pixel
    QImage img(qRound(w / Twips_Per_Px * scale), qRound(h / Twips_Per_Px * scale), QImage::Format_RGB32);
    img.fill(Colour_Of(Diagram_Back));
    {
      QPainter painter(&img);
      QtPainterSurface s(painter, w, h, scale / Twips_Per_Px, true);
      s.BackColor(Diagram_Back);
      BeamModel m = model;  // the drawings may refresh shown values
      DiagramState st;
      st.ExternalMode = ExternalMode;
      st.NB = NB_Of(m);
      switch (kind) {
        case Report_PictureKind::Beam: Tracer_Loads(s, m); break;
        case Report_PictureKind::Section: Draw_Section(s, m); break;
        case Report_PictureKind::Forces: {
          EffortsData e;
          Tracer_Efforts(s, m, e, st);
          break;
        }
        case Report_PictureKind::Mode: Tracer_VecteurPropre(s, m, st); break;
      }
    }
    return Make_Picture(Png_Bytes(img), w, h);
  };
}

Rich_Document Build_Report(const BeamModel& m, const std::string& Language_Code,
                           const Report_PictureSource& pictures) {
  Report_Inputs in;
  in.Language_Code = Language_Code;
  const std::time_t now = std::time(nullptr);
  localtime_r(&now, &in.When);
  in.Pictures = pictures;
  in.After_Results = [&m](Rich_Text& rt) { Report_Design(rt, Design_Of_Record(m), m); };
  Rich_Text rt = Report_Builder();
  Edit_Results(rt, m, in);
  return rt.Document();
}

}  // namespace zarvek
