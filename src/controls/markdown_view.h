#pragma once

#include <QTextBrowser>
#include <optional>

/// Shows the Markdown pages of one folder, to be read. Pictures are as wide as the text at the most. No file
/// outside the folder is read, whatever a page asks for, and nothing is fetched. A link only reports itself
/// by `anchorClicked`.
class MarkdownView : public QTextBrowser {
  Q_OBJECT

 public:
  explicit MarkdownView(QWidget* parent = nullptr);

  void setFolder(const QString& folder) { folder_ = folder; }
  /// Shows the page of this file name from its beginning; false, and what is shown stays, where the folder
  /// has no such page.
  bool showPage(const QString& name);
  /// File name of the page that is shown; empty for none.
  const QString& page() const { return page_; }
  /// Names of the folder's pages; the contents, "README.md", first.
  QStringList pages() const;
  /// Text of a page without its signs; empty for none.
  QString plainText(const QString& name) const;
  /// First heading of the page.
  QString title() const;
  /// Moves to the heading that the anchor names; false if the page has none.
  bool goTo(const QString& anchor);
  /// Name by which a link finds a heading: small letters and digits, blanks as "-", other signs dropped.
  static QString anchorOf(const QString& heading);

 protected:
  QVariant loadResource(int type, const QUrl& name) override;
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::optional<QByteArray> read(const QString& name) const;
  void dressHeadings();
  void dressTables();
  void fitPictures();

  QString folder_;
  QString page_;
};
