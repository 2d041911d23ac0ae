// The bundle reader on archives made by the test: a good bundle with its defaults, and every kind
// of broken bundle refused before anything of it could reach a pump.

#include "BundleWriter.h"

#include "QtApps/Common/Controllers/FirmwareUpdateController.h"
#include "QtApps/Common/Model/FirmwareUpdate/FirmwareBundle.h"
#include "QtApps/Common/Model/FirmwareUpdate/MiniZipReader.h"

#include <QTemporaryDir>
#include <QTest>

#include <functional>

using firmwareUpdate::FirmwareBundle;
using testsupport::FirmwareImage;
using testsupport::Manifest;
using testsupport::ZipMember;

Q_DECLARE_METATYPE(testsupport::ZipMember)

namespace {

const char* const kOneImage = R"([{"device": "BWD-100-SIM", "filename": "app.bin"}])";

QList<ZipMember> WithImage(const QByteArray& manifest, const QByteArray& image) {
    return {{"bundle.json", manifest}, {"app.bin", image}};
}

QList<ZipMember> ThousandsOfMembers() {
    QList<ZipMember> members = WithImage(Manifest(kOneImage), FirmwareImage(64));
    for (int i = 0; i < 3000; ++i) {
        members.append({"pad/" + QByteArray::number(i), "x"});
    }
    return members;
}

QList<ZipMember> ManifestWithBank(const char* bank) {
    const QByteArray images = QByteArray(R"([{"device": "BWD-100-SIM", "bank": )") + bank +
                              R"(, "filename": "app.bin"}])";
    return WithImage(Manifest(images.constData()), FirmwareImage(64));
}

QList<ZipMember> ManifestNaming(const char* name) {
    const QByteArray images =
        QByteArray(R"([{"device": "BWD-100-SIM", "filename": ")") + name + R"("}])";
    return {{"bundle.json", Manifest(images.constData())}, {name, FirmwareImage(64)}};
}

} // namespace

class FirmwareBundleTest : public QObject {
    Q_OBJECT

private slots:
    void goodBundle_readsBuildImagesAndDefaults();
    void brokenBundle_isRefusedWithAReason_data();
    void brokenBundle_isRefusedWithAReason();
    void fileNotAZip_isRefused();
    void imagesFor_matchesThePartNumberAfterTrimming();
    void bundlePathFromUrl_givesTheLocalPath_data();
    void bundlePathFromUrl_givesTheLocalPath();

private:
    QString write(const QList<ZipMember>& members) {
        const QString path = mDir.filePath(QStringLiteral("bundle-%1.zip").arg(++mCount));
        if (!testsupport::WriteZip(path, members)) {
            qFatal("cannot write %s", qPrintable(path));
        }
        return path;
    }

    QTemporaryDir mDir;
    int mCount = 0;
    common::MiniZipReader mReader;
};

void FirmwareBundleTest::goodBundle_readsBuildImagesAndDefaults() {
    const QByteArray manifest = R"({"build": {"time": "2026-11-20T14:30:00Z", "version": "1.17.0",
        "name": "n", "commit": "c", "branch": "b", "tag": "t", "fromBuildServer": true},
        "images": [{"device": " BWD-100-SIM ", "filename": "app.bin", "base": "0x08008000",
                    "target": "main-mcu"},
                   {"device": "BWD-100-SIM", "bank": 1, "filename": "dir/motor.bin"}]})";
    const QString path = write({{"bundle.json", manifest},
                                {"app.bin", FirmwareImage(3000, "1.17.0")},
                                {"dir/motor.bin", FirmwareImage(1)}});
    QString error;
    const std::optional<FirmwareBundle> bundle = FirmwareBundle::read(mReader, path, error);
    QVERIFY2(bundle, qPrintable(error));
    QCOMPARE(bundle->info().version, QStringLiteral("1.17.0"));
    QCOMPARE(bundle->info().time, QDateTime(QDate(2026, 11, 20), QTime(14, 30), Qt::UTC));
    QCOMPARE(bundle->info().tag, QStringLiteral("t"));
    QCOMPARE(bundle->info().isRelease, false);
    QCOMPARE(bundle->info().fromBuildServer, true);
    QCOMPARE(bundle->images().size(), 2);
    const FirmwareBundle::ImageType& app = bundle->images().at(0);
    QCOMPARE(app.bank, 0); // the default
    QCOMPARE(app.target, QStringLiteral("main-mcu"));
    QCOMPARE(app.data, FirmwareImage(3000, "1.17.0"));
    QCOMPARE(bundle->images().at(1).label(), QStringLiteral("BWD-100-SIM (1)"));
    QCOMPARE(bundle->images().at(1).data.size(), 1);
}

void FirmwareBundleTest::brokenBundle_isRefusedWithAReason_data() {
    QTest::addColumn<QList<ZipMember>>("members");
    QTest::addColumn<QString>("reason");
    const QByteArray image = FirmwareImage(256);

    QTest::newRow("no bundle.json") << QList<ZipMember>{{"app.bin", image}} << "no member";
    QTest::newRow("broken JSON") << WithImage(R"({"build": {"version": "1")", image)
                                 << "bundle.json:";
    QTest::newRow("manifest not an object") << WithImage("[1, 2]", image) << "not a JSON object";
    QTest::newRow("empty build") << WithImage(QByteArray(R"({"build": {}, "images": )") +
                                                  kOneImage + "}",
                                              image)
                                 << "\"build\"";
    QTest::newRow("time not ISO 8601")
        << WithImage(QByteArray(R"({"build": {"time": "yesterday"}, "images": )") + kOneImage + "}",
                     image)
        << "ISO 8601";
    QTest::newRow("flag of the wrong type")
        << WithImage(QByteArray(R"({"build": {"version": "1", "isRelease": "yes"}, "images": )") +
                         kOneImage + "}",
                     image)
        << "boolean";
    QTest::newRow("no images") << WithImage(Manifest("[]"), image) << "\"images\"";
    QTest::newRow("image member missing")
        << QList<ZipMember>{{"bundle.json", Manifest(kOneImage)}} << "no member \"app.bin\"";
    QTest::newRow("member CRC does not match")
        << QList<ZipMember>{{"bundle.json", Manifest(kOneImage)}, {"app.bin", image, 0x12345678U}}
        << "CRC-32";
    QTest::newRow("member shorter than declared")
        << QList<ZipMember>{{"bundle.json", Manifest(kOneImage)},
                            {"app.bin", image, std::nullopt, 300U}}
        << "does not match";
    QTest::newRow("zero-length image") << WithImage(Manifest(kOneImage), {}) << "empty";
    QTest::newRow("1 GB member declared")
        << QList<ZipMember>{{"bundle.json", Manifest(kOneImage)},
                            {"app.bin", image, std::nullopt, 1ULL << 30}}
        << "more than";
    QTest::newRow("thousands of members") << ThousandsOfMembers() << "members";
    QTest::newRow("parent directory") << ManifestNaming("../app.bin") << "not allowed";
    QTest::newRow("absolute path") << ManifestNaming("/etc/app.bin") << "not allowed";
    QTest::newRow("drive") << ManifestNaming("C:/app.bin") << "not allowed";
    QTest::newRow("back-slash") << ManifestNaming("fw\\\\app.bin") << "not allowed";
    QTest::newRow("bank a string") << ManifestWithBank("\"one\"") << "\"bank\"";
    QTest::newRow("bank a fraction") << ManifestWithBank("1.5") << "\"bank\"";
    QTest::newRow("bank too large") << ManifestWithBank("256") << "\"bank\"";
    QTest::newRow("bank negative") << ManifestWithBank("-1") << "\"bank\"";
    QTest::newRow("two images for one bank")
        << WithImage(Manifest(R"([{"device": "D", "filename": "app.bin"},
                                  {"device": "D", "bank": 0, "filename": "app.bin"}])"),
                     image)
        << "two images";
    QTest::newRow("image without device")
        << WithImage(Manifest(R"([{"filename": "app.bin"}])"), image) << "no \"device\"";
}

void FirmwareBundleTest::brokenBundle_isRefusedWithAReason() {
    QFETCH(QList<ZipMember>, members);
    QFETCH(QString, reason);
    QString error;
    QVERIFY(!FirmwareBundle::read(mReader, write(members), error));
    QVERIFY2(error.contains(reason), qPrintable(error));
}

void FirmwareBundleTest::fileNotAZip_isRefused() {
    const QString path = mDir.filePath(QStringLiteral("notes.zip"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("PK\x03\x04 but nothing of a ZIP after the signature");
    file.close();
    QString error;
    QVERIFY(!FirmwareBundle::read(mReader, path, error));
    QCOMPARE(error, QStringLiteral("not a ZIP archive"));
    QVERIFY(!FirmwareBundle::read(mReader, mDir.filePath(QStringLiteral("absent.zip")), error));
    QVERIFY2(error.startsWith(QStringLiteral("cannot open")), qPrintable(error));
}

void FirmwareBundleTest::imagesFor_matchesThePartNumberAfterTrimming() {
    const QString path = write(WithImage(Manifest(R"([{"device": "BWD-100-SIM ", "filename":
        "app.bin"}, {"device": "BWD-100", "bank": 1, "filename": "app.bin"}])"),
                                         FirmwareImage(8)));
    QString error;
    const std::optional<FirmwareBundle> bundle = FirmwareBundle::read(mReader, path, error);
    QVERIFY2(bundle, qPrintable(error));
    QCOMPARE(bundle->imagesFor(QStringLiteral("  BWD-100-SIM")).size(), 1);
    QCOMPARE(bundle->imagesFor(QStringLiteral("BWD-100")).size(), 1);
    QCOMPARE(bundle->imagesFor(QStringLiteral("bwd-100-sim")).size(), 0); // exact, not folded
    QCOMPARE(bundle->imagesFor(QString()).size(), 0);
}

void FirmwareBundleTest::bundlePathFromUrl_givesTheLocalPath_data() {
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("path");
    QTest::newRow("windows drive") << "file:///C:/Firmware/bundle.zip"
                                   << "C:/Firmware/bundle.zip";
    QTest::newRow("back-slashes") << "file:///C:\\Firmware\\bundle.zip"
                                  << "C:/Firmware/bundle.zip";
    QTest::newRow("unix") << "file:///home/tech/bundle.zip"
                          << "/home/tech/bundle.zip";
    QTest::newRow("escaped space") << "file:///tmp/my%20bundle.zip"
                                   << "/tmp/my bundle.zip";
    QTest::newRow("plain path") << "/tmp/bundle.zip"
                                << "/tmp/bundle.zip";
}

void FirmwareBundleTest::bundlePathFromUrl_givesTheLocalPath() {
    QFETCH(QString, url);
    QFETCH(QString, path);
    QCOMPARE(firmwareUpdate::FirmwareUpdateController::bundlePathFromUrl(url), path);
}

QTEST_GUILESS_MAIN(FirmwareBundleTest)
#include "tst_FirmwareBundle.moc"
