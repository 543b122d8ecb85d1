#include "qtsurface/pdf_pages.h"

#include "core/run_time_error.h"

#include <fcntl.h>
#include <QByteArray>
#include <QFile>
#include <QList>

#include <algorithm>
#include <numeric>

// Objects, cross-reference tables and their updates: ISO 32000-1, 7.3 and 7.5.

namespace quelmont {

namespace {

/// Longer than any dictionary of a page or of its resources, and than the end of a file.
constexpr qint64 LongestObject = 65536;

[[noreturn]] void NotOfQt() { throw RunTimeError(ErrorDeviceIo); }

/// A file whose objects can be read one by one, and replaced by others at its end.
class PdfFile {
public:
    explicit PdfFile(const std::string& name);

    /// The text of an object from its number to "endobj".
    QByteArray Object(int number) { return ReadUntil(OffsetOf(number), "endobj"); }
    qint64 OffsetOf(int number) const;
    const QByteArray& Trailer() const { return trailer; }
    int ObjectCount() const { return static_cast<int>(offsets.size()); }

    /// Blanks out what begins with a key and ends with a mark, between two places. Nothing when it is not
    /// there.
    void Blank(qint64 from, qint64 to, const char* key, const char* end);
    /// Blanks out the dates in the document information dictionary, and the file identifier.
    void Anonymise();

    /// Objects, by their numbers, and a table of them.
    void Append(const QList<std::pair<int, QByteArray>>& objects);
    void Close();

private:
    QByteArray Read(qint64 from, qint64 size);
    QByteArray ReadUntil(qint64 from, const char* end);
    void Write(qint64 at, const QByteArray& bytes);

    QFile file;
    qint64 tableOffset = 0;
    qint64 trailerOffset = 0;
    QByteArray trailer;
    QList<qint64> offsets; ///< by number
};

qsizetype LengthOf(const char* text) { return static_cast<qsizetype>(qstrlen(text)); }

/// The number behind a key of a dictionary: of the object referred to, or the number itself.
int NumberOf(const QByteArray& dictionary, const char* key) {
    const qsizetype at = dictionary.indexOf(key);
    if (at < 0) {
        NotOfQt();
    }
    const QByteArray rest = dictionary.mid(at + LengthOf(key)).trimmed();
    const auto* const end =
        std::find_if(rest.begin(), rest.end(), [](char letter) { return letter < '0' || letter > '9'; });
    bool isNumber = false;
    const int number = rest.first(end - rest.begin()).toInt(&isNumber);
    if (!isNumber) {
        NotOfQt();
    }
    return number;
}

/// What stands between two marks.
QByteArray Between(const QByteArray& text, const char* from, const char* to) {
    const qsizetype begin = text.indexOf(from);
    const qsizetype end = begin < 0 ? -1 : text.indexOf(to, begin);
    if (end < 0) {
        NotOfQt();
    }
    return text.mid(begin + LengthOf(from), end - begin - LengthOf(from));
}

PdfFile::PdfFile(const std::string& name) {
    const int handle = ::open(name.c_str(), O_RDWR | O_CLOEXEC); // Qt has no name for one that is no UTF-8
    if (handle < 0 || !file.open(handle, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle)) {
        throw RunTimeError(ErrorDeviceIo);
    }
    constexpr qint64 lastBytes = 64;
    const QByteArray last = Read(std::max<qint64>(0, file.size() - lastBytes), lastBytes);
    tableOffset = NumberOf(last, "startxref");
    const QByteArray end = Read(tableOffset, file.size() - tableOffset);
    const qsizetype trailerAt = end.indexOf("trailer");
    const QList<QByteArray> lines = end.first(std::max<qsizetype>(trailerAt, 0)).split('\n');
    constexpr int firstEntry = 2; // behind "xref" and the numbers of the first object and of their count
    if (trailerAt < 0 || lines.size() < firstEntry || !lines[0].startsWith("xref")) {
        NotOfQt();
    }
    for (const QByteArray& line : lines.sliced(firstEntry)) {
        constexpr int digits = 10;
        if (line.size() > digits) {
            offsets.append(line.first(digits).toLongLong());
        }
    }
    trailerOffset = tableOffset + trailerAt;
    trailer = end.mid(trailerAt);
}

QByteArray PdfFile::Read(qint64 from, qint64 size) {
    if (!file.seek(from)) {
        throw RunTimeError(ErrorDeviceIo);
    }
    return file.read(size);
}

QByteArray PdfFile::ReadUntil(qint64 from, const char* end) {
    const QByteArray text = Read(from, LongestObject);
    const qsizetype at = text.indexOf(end);
    if (at < 0) {
        NotOfQt();
    }
    return text.first(at);
}

void PdfFile::Write(qint64 at, const QByteArray& bytes) {
    if (!file.seek(at) || file.write(bytes) != bytes.size() || !file.flush()) {
        throw RunTimeError(ErrorDiskFull);
    }
}

qint64 PdfFile::OffsetOf(int number) const {
    if (number < 1 || number >= offsets.size()) {
        NotOfQt();
    }
    return offsets[number];
}

void PdfFile::Blank(qint64 from, qint64 to, const char* key, const char* end) {
    const QByteArray text = Read(from, to - from);
    const qsizetype begin = text.indexOf(key);
    const qsizetype last = begin < 0 ? -1 : text.indexOf(end, begin);
    if (last >= 0) {
        Write(from + begin, QByteArray(last + LengthOf(end) - begin, ' '));
    }
}

void PdfFile::Anonymise() {
    const qint64 info = OffsetOf(NumberOf(trailer, "/Info"));
    const qint64 infoEnd = info + Object(NumberOf(trailer, "/Info")).size();
    for (const char* const date : {"/CreationDate (", "/ModDate ("}) {
        Blank(info, infoEnd, date, ")");
    }
    Blank(trailerOffset, trailerOffset + trailer.size(), "/ID [", "]");
    trailer = Read(trailerOffset, trailer.size());
}

void PdfFile::Append(const QList<std::pair<int, QByteArray>>& objects) {
    QByteArray text = "\n";
    const qint64 begin = file.size();
    QByteArray table = "xref\n";
    int count = ObjectCount();
    for (const auto& [number, object] : objects) {
        table += QByteArray::number(number) + " 1\n" +
                 QByteArray::number(begin + text.size()).rightJustified(10, '0') + " 00000 n \n";
        text += QByteArray::number(number) + " 0 obj\n" + object + "\nendobj\n";
        count = std::max(count, number + 1);
    }
    const qint64 tableAt = begin + text.size();
    text += table + "trailer\n<<\n/Size " + QByteArray::number(count) + "\n/Info " +
            QByteArray::number(NumberOf(trailer, "/Info")) + " 0 R\n/Root " +
            QByteArray::number(NumberOf(trailer, "/Root")) + " 0 R\n/Prev " +
            QByteArray::number(tableOffset) + "\n>>\nstartxref\n" + QByteArray::number(tableAt) + "\n%%EOF\n";
    Write(begin, text);
}

void PdfFile::Close() {
    file.close();
    if (file.error() != QFileDevice::NoError) {
        throw RunTimeError(ErrorDiskFull);
    }
}

QByteArray Reference(int number) { return QByteArray::number(number) + " 0 R"; }

QByteArray StreamOf(const QByteArray& content) {
    return "<< /Length " + QByteArray::number(content.size()) + " >>\nstream\n" + content + "\nendstream";
}

/// What a dictionary of resources says of fonts: lines of "/F7 7 0 R".
constexpr const char* FontsBegin = "/Font <<";
constexpr const char* DictionaryEnds = ">>";

/// A page made of several, whose first it replaces.
class JoinedPage {
public:
    JoinedPage(PdfFile& file_, int saveStream_, int restoreStream_)
        : file(file_), saveStream(saveStream_), restoreStream(restoreStream_) {}

    void Add(int page) {
        const QByteArray text = file.Object(page);
        const QByteArray resources = file.Object(NumberOf(text, "/Resources"));
        for (const QByteArray& font : Between(resources, FontsBegin, DictionaryEnds).split('\n')) {
            if (!font.trimmed().isEmpty() && !fonts.contains(font)) {
                fonts.append(font);
            }
        }
        // Each content begins by setting the unit for itself.
        contents += Reference(saveStream) + " " + Reference(NumberOf(text, "/Contents")) + " " +
                    Reference(restoreStream) + "\n";
    }

    /// The page's dictionary, and that of its resources, like those of the first.
    QByteArray Page(int first) const {
        QByteArray text = Dictionary(first);
        text.replace("/Contents " + Reference(NumberOf(text, "/Contents")), "/Contents [\n" + contents + "]");
        return text;
    }
    QByteArray Resources(int first) const {
        QByteArray text = Dictionary(first);
        const qsizetype at = text.indexOf(FontsBegin);
        const qsizetype begin = at + LengthOf(FontsBegin);
        text.replace(begin, text.indexOf(DictionaryEnds, begin) - begin, "\n" + fonts.join('\n') + "\n");
        return text;
    }

private:
    QByteArray Dictionary(int number) const {
        const QByteArray object = file.Object(number);
        return object.mid(object.indexOf("obj") + 3).trimmed();
    }

    PdfFile& file;
    int saveStream;
    int restoreStream;
    QByteArray contents;
    QList<QByteArray> fonts;
};

QList<int> PageNumbers(const QByteArray& kids) {
    QList<int> numbers;
    for (const QByteArray& line : kids.split('R')) {
        if (!line.trimmed().isEmpty()) {
            numbers.append(line.trimmed().split(' ').first().toInt());
        }
    }
    return numbers;
}

void JoinPages(PdfFile& file, std::span<const int> streams) {
    const int root = NumberOf(file.Trailer(), "/Root");
    const int pages = NumberOf(file.Object(root), "/Pages");
    const QByteArray text = file.Object(pages);
    const QList<int> numbers = PageNumbers(Between(text, "/Kids \n[", "]"));
    if (numbers.size() != std::accumulate(streams.begin(), streams.end(), 0)) {
        NotOfQt();
    }
    const int saveStream = file.ObjectCount();
    const int restoreStream = saveStream + 1;
    QList<std::pair<int, QByteArray>> objects{{saveStream, StreamOf("q")}, {restoreStream, StreamOf("Q")}};
    QByteArray kids;
    qsizetype next = 0;
    for (const int count : streams) {
        const int first = numbers[next];
        kids += Reference(first) + "\n";
        JoinedPage joined(file, saveStream, restoreStream);
        for (const int page : numbers.sliced(next, count)) {
            joined.Add(page);
        }
        if (count > 1) {
            const int resources = NumberOf(file.Object(first), "/Resources");
            objects.append({first, joined.Page(first)});
            objects.append({resources, joined.Resources(resources)});
        }
        next += count;
    }
    objects.append({pages, "<<\n/Type /Pages\n/Kids \n[\n" + kids + "]\n/Count " +
                               QByteArray::number(static_cast<qsizetype>(streams.size())) +
                               "\n/ProcSet [/PDF /Text /ImageB /ImageC]\n>>"});
    std::sort(objects.begin(), objects.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    file.Append(objects);
}

} // namespace

void TidyPdf(const std::string& name, std::span<const int> streams) {
    PdfFile file(name);
    file.Anonymise();
    if (std::any_of(streams.begin(), streams.end(), [](int count) { return count > 1; })) {
        JoinPages(file, streams);
    }
    file.Close();
}

} // namespace quelmont
