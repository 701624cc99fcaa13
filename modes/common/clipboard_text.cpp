#include "common/clipboard_text.h"

#include "document/html.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

static QString quotedCell(const QString& cell)
{
    const bool bare = !cell.contains(QLatin1Char('\t')) && !cell.contains(QLatin1Char('\n'))
        && !cell.contains(QLatin1Char('\r')) && !cell.startsWith(QLatin1Char('"'));
    if (bare)
        return cell;
    QString doubled = cell;
    doubled.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + doubled + QLatin1Char('"');
}

QString clipboardText(const CellBlock& block)
{
    QString text;
    for (const QVector<QString>& row : block) {
        for (int column = 0; column < row.size(); ++column) {
            if (column > 0)
                text += QLatin1Char('\t');
            text += quotedCell(row[column]);
        }
        text += QLatin1Char('\n');
    }
    return text;
}

namespace
{

// Walks the text once, from cell to cell.
class CellReader
{
public:
    explicit CellReader(const QString& text)
        : text_(text)
    {
        text_.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        text_.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    }

    CellBlock rows()
    {
        CellBlock block;
        while (at_ < text_.size()) {
            QVector<QString> row{cell()};
            while (at_ < text_.size() && text_[at_] == QLatin1Char('\t')) {
                ++at_;
                row.append(cell());
            }
            block.append(row);
            ++at_;
        }
        return block;
    }

private:
    QString cell()
    {
        QString value;
        if (at_ < text_.size() && text_[at_] == QLatin1Char('"') && closed())
            value = quoted();
        while (at_ < text_.size() && text_[at_] != QLatin1Char('\t') && text_[at_] != QLatin1Char('\n'))
            value += text_[at_++];
        return value;
    }

    // A quote that nothing closes is a quote that somebody typed: inches, for instance.
    bool closed() const
    {
        for (int i = at_ + 1; i < text_.size(); ++i) {
            if (text_[i] != QLatin1Char('"'))
                continue;
            if (i + 1 >= text_.size() || text_[i + 1] == QLatin1Char('\t')
                || text_[i + 1] == QLatin1Char('\n'))
                return true;
            if (text_[i + 1] == QLatin1Char('"'))
                ++i;
        }
        return false;
    }

    QString quoted()
    {
        QString value;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] == QLatin1Char('"')) {
                ++at_;
                if (at_ >= text_.size() || text_[at_] != QLatin1Char('"'))
                    return value;
            }
            value += text_[at_];
        }
        return value;
    }

    QString text_;
    int at_ = 0;
};

} // namespace

CellBlock cellsOfClipboard(const QString& text)
{
    return CellReader(text).rows();
}

CellBlock cellsOnClipboard()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data)
        return {};
    return cellsOfClipboard(
        data->hasFormat(cellsMimeType) ? QString::fromUtf8(data->data(cellsMimeType)) : data->text());
}

QString clipboardHtml(const CellBlock& block)
{
    TableBlock table;
    for (const QVector<QString>& row : block) {
        std::vector<TableCell> cells;
        for (const QString& text : row) {
            TableCell cell;
            cell.runs = {{text.toStdWString()}};
            cells.push_back(std::move(cell));
        }
        table.rows.push_back(std::move(cells));
    }
    return QString::fromStdString(toHtmlFragment(table));
}
