#pragma once

#include <QDialog>
#include <QList>
#include <QString>

namespace vasclip::windows {

struct AboutText
{
    QString product; ///< the program's display name
    QString version; ///< "1.0.0"
    QString company;
    /// What helps when somebody asks for help: name and value, "Databook" and its path.
    QList<std::pair<QString, QString>> facts;
    QString changes = {}; ///< what is new, "" shows no such view
};

/// What this program is.
class AboutBox : public QDialog
{
    Q_OBJECT
public:
    explicit AboutBox(const AboutText& text, QWidget* parent = nullptr);
};

} // namespace vasclip::windows
