// Qt's file dialogs behind the pickers, and the filter conversion.
#include "Gui_Pickers.h"

#include <QFileDialog>
#include <QStringList>

namespace Gui {

Pickers::~Pickers() = default;

std::string DialogPickers::openFile(QWidget* parent, const std::string& directory, const QString& filter)
{
    return QFileDialog::getOpenFileName(parent, QString(), QString::fromStdString(directory), filter).toStdString();
}

std::string DialogPickers::folder(QWidget* parent, const std::string& directory, const std::string& title)
{
    return QFileDialog::getExistingDirectory(parent, QString::fromStdString(title), QString::fromStdString(directory))
        .toStdString();
}

QString qtFilter(const std::string& barFilter)
{
    const QStringList pieces = QString::fromStdString(barFilter).split(u'|');
    QStringList entries;
    for (qsizetype i = 0; i + 1 < pieces.size(); i += 2) {
        const QString name = pieces[i].trimmed();
        if (name.isEmpty())
            break; // the "||" that ends the list
        QString patterns = pieces[i + 1];
        patterns.replace(u';', u' ');
        // A name that already shows its patterns ("Files (*.dsp)") keeps them once.
        if (name.endsWith(u')') && name.contains(u'('))
            entries << name.left(name.lastIndexOf(u'(')).trimmed() + " (" + patterns + ")";
        else
            entries << name + " (" + patterns + ")";
    }
    return entries.join(";;");
}

} // namespace Gui
