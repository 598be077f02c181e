#include "HostRun.h"

#include "Window/ProfilesDialog.h"

#include <KlvExtender/KlvProfileSetting.h>

class tst_Profiles : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    KlvPluginsManager* m_manager = KlvPluginsManager::getInstance();

    QString path() const { return m_folder->filePath("Kelvor/profiles.json"); }
    QByteArray content(const QString& suffix = QString()) const
    {
        QFile file(path() + suffix);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QByteArray& content)
    {
        QVERIFY(QDir(m_folder->path()).mkpath("Kelvor"));
        QFile file(path());
        QVERIFY(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    }
    QStringList active() const
    {
        QStringList names;
        for (const KlvExtension* one : m_manager->getExtensions()) {
            if (one->isActive())
                names << toUtf16(one->getName());
        }
        return names;
    }
    KlvExtension* find(const QString& name) const
    {
        const auto all = m_manager->getExtensions();
        return *std::find_if(all.begin(), all.end(), [&](auto* one) {
            return toUtf16(one->getName()) == name || one->metaObject()->className() == name;
        });
    }
    bool fieldEditorControls(const QString& editor) const
    {
        return find("Field Editor")->getProfileSetting()->getControlledExtensions().contains(find(editor));
    }

    static void open(QDialog& dialog)
    {
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
    }
    /// Checks or unchecks a box of the tree with the keyboard.
    static void toggle(const QDialog& dialog, const QString& extension)
    {
        auto* tree = dialog.findChild<QTreeWidget*>();
        tree->setCurrentItem(tree->findItems(extension, Qt::MatchExactly | Qt::MatchRecursive).value(0));
        QTest::keyClick(tree, Qt::Key_Space);
    }
    static QAbstractButton* ok(const QDialog& dialog)
    {
        return dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    }

private Q_SLOTS:
    void init()
    {
        QTest::failOnWarning(unexpectedWarnings());
        m_folder = std::make_unique<QTemporaryDir>();
    }

    void shippedProfilesTakeInWhatArrivesLater()
    {
        const std::pair<QString, QString> rows[] = {
            {"Default", "Profile Selector,Console,Field Editor,Node Editor,first,second,third"},
            {"Fields", "Field Editor,Node Editor"},
            {"Console only", "Console"},
        };
        for (const auto& [profile, names] : rows) {
            HostRun run(m_folder->path(), profile);
            QVERIFY(run.found && run.problems.isEmpty());
            QVERIFY(run.plugins.load(HostRun::module("RecordingNone"), nullptr));
            QVERIFY(run.plugins.load(HostRun::module("color_plugin"), nullptr));
            QCOMPARE(active().join(','), names);
            QVERIFY(profile == "Console only" || fieldEditorControls("Color Editor"));
        }
    }

    void whatIsEditedHoldsAtOnceAndInTheNextRun()
    {
        const QString name = QStringLiteral("My \"own\" \\ one");
        {
            HostRun run(m_folder->path());
            ProfilesDialog dialog(&run.plugins.profiles());
            open(dialog);
            HostRun::click(dialog, "&Copy");
            QTest::keyClicks(dialog.focusWidget(), name);
            toggle(dialog, "Console");
            toggle(dialog, "DvSFFloatWidget");
            HostRun::click(dialog, "Make &Active");
            QCOMPARE(HostRun::activeName(), QString("Default"));
            QTest::mouseClick(ok(dialog), Qt::LeftButton);
            QVERIFY(!dialog.isVisible() && !active().contains("Console"));
            // What the user left alone is not written.
            QVERIFY(!content().contains("DvSFBoolWidget") && !content().contains("\"Default\""));
        }
        HostRun run(m_folder->path());
        QVERIFY2(run.problems.isEmpty(), qPrintable(run.problems.join('\n')));
        QCOMPARE(HostRun::activeName(), name);
        QCOMPARE(active(), (QStringList{"Profile Selector", "Field Editor", "Node Editor"}));
        QVERIFY(!fieldEditorControls("DvSFFloatWidget") && fieldEditorControls("DvSFDoubleWidget"));
        QVERIFY(run.plugins.activateProfile("Default") && fieldEditorControls("DvSFFloatWidget"));
    }

    void shippedProfilesAreEditedAndRestored()
    {
        HostRun run(m_folder->path());
        for (const bool restored : {false, true}) {
            ProfilesDialog dialog(&run.plugins.profiles());
            open(dialog);
            if (restored)
                HostRun::click(dialog, "Re&store as Shipped");
            else
                toggle(dialog, "Console");
            // It can be neither renamed nor deleted.
            QTest::keyClick(dialog.findChild<QListWidget*>(), Qt::Key_Delete);
            QVERIFY(dialog.findChild<QLineEdit*>()->isReadOnly());
            dialog.accept();
            QCOMPARE(active().contains("Console"), restored);
            QCOMPARE(m_manager->getProfilesList().size(), 3);
        }
    }

    void namesAreGivenAndUnique()
    {
        HostRun run(m_folder->path());
        ProfilesDialog dialog(&run.plugins.profiles());
        open(dialog);
        HostRun::click(dialog, "&New");
        for (const QString name : {" ", "Fields", "Fields "}) {
            dialog.findChild<QLineEdit*>()->clear();
            QTest::keyClicks(dialog.findChild<QLineEdit*>(), name);
            QVERIFY2(!ok(dialog)->isEnabled(), qPrintable(name));
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QVERIFY(m_manager->getProfilesList().size() == 3 && !QFile::exists(path()));
    }

    void renamingAndDeletingTheActiveProfile()
    {
        HostRun run(m_folder->path());
        QList<ProfileStore::Entry> entries = run.plugins.profiles().entries();
        entries.append({{"Mine", "everything", {}, {}, false}, nullptr});
        QCOMPARE(run.plugins.profiles().replace(entries, 3), QString());
        const QSignalSpy console(find("Console"), &KlvExtension::stateChanged);
        for (const int key : {Qt::Key_F2, Qt::Key_Delete}) {
            ProfilesDialog dialog(&run.plugins.profiles());
            open(dialog);
            QTest::keyClick(dialog.findChild<QListWidget*>(), Qt::Key(key));
            if (key == Qt::Key_F2)
                QTest::keyClicks(dialog.focusWidget(), "Yours");
            dialog.accept();
            QCOMPARE(HostRun::activeName(), QString(key == Qt::Key_F2 ? "Yours" : "Default"));
            QCOMPARE(console.size(), 0); // It is in both, and was not touched.
        }
        QVERIFY(!content().contains("Yours"));
    }

    void choicesForAbsentPluginsAreKept()
    {
        write(R"({"format": 1, "profiles": [{"name": "Default", "rule": "everything", "extensions": [
            {"plugin": "Recording", "extension": "second", "active": false},
            {"plugin": "Elsewhere", "extension": "Dial", "active": false}]}]})");
        HostRun run(m_folder->path());
        QCOMPARE(run.plugins.profiles().replace(run.plugins.profiles().entries(), 0), QString());
        QVERIFY(run.problems.isEmpty() && content().contains("Elsewhere"));
        for (int i = 0; i < 2; ++i) { // Loaded, unloaded, and loaded again.
            QVERIFY(run.plugins.load(HostRun::module("RecordingNone"), nullptr));
            QVERIFY(active().contains("first") && !active().contains("second"));
            run.plugins.unload(m_manager->getPlugins().last());
        }
    }

    void damagedFiles()
    {
        const QByteArray mine = R"({"name": "Mine", "rule": "nothing"})";
        const QByteArray start = R"({"name": "Mine", "rule": "nothing", "extensions": )";
        // The list in the file, how many problems are told, and what of.
        const std::tuple<QByteArray, int, QString> rows[] = {
            {"", 1, ".damaged"}, // no JSON
            {"7, {\"name\": \" \"}, " + mine, 2, "name"},
            {R"({"name": "Odd", "rule": "half"}, )" + mine, 1, "\"half\""},
            {mine + ", " + mine, 1, "Mine"},
            {start + R"([3, {"plugin": "KlvDefaults", "extension": "Console", "active": "yes"},
                {"plugin": "KlvDefaults", "extension": "Node Editor", "active": true}],
                "withheld": [{"dock": {}}]})",
             3, "entry 2"},
            {start + R"(5, "colour": 1})", 2, "colour"},
        };
        for (const auto& [list, problems, mentions] : rows) {
            m_folder = std::make_unique<QTemporaryDir>();
            const QByteArray damaged = list.isEmpty() ? "{" : R"({"format": 1, "profiles": [)" + list + "]}";
            write(damaged);
            {
                HostRun run(m_folder->path(), list.isEmpty() ? "Default" : "Mine");
                const QString told = run.problems.join(' ');
                QVERIFY2(run.problems.size() == problems && told.contains(mentions), qPrintable(told));
                QVERIFY2(run.found, damaged);
                QCOMPARE(active().contains("Node Editor"), list.isEmpty() || list.contains("true"));
                QCOMPARE(content(), damaged);
                for (int i = 0; i < 2; ++i)
                    QCOMPARE(run.plugins.profiles().replace(run.plugins.profiles().entries(), 0), QString());
            }
            QCOMPARE(content(".damaged"), damaged);
            QVERIFY(!QFile::exists(path() + ".damaged2"));
            QVERIFY(HostRun(m_folder->path()).problems.isEmpty());
        }
    }

    void aFileThatCannotBeWrittenIsTold()
    {
        HostRun run(m_folder->path());
        QVERIFY(QDir(m_folder->path()).mkpath("Kelvor/profiles.json/in the way"));
        const QString error = run.plugins.profiles().replace(run.plugins.profiles().entries(), 1);
        QVERIFY2(error.contains(path()) && error.endsWith('.'), qPrintable(error));
        QCOMPARE(HostRun::activeName(), QString("Fields"));
    }

    void theProfileOfTheCommandLineIsNotRemembered()
    {
        QVERIFY(HostRun(m_folder->path(), "Console only").found);
        for (const QString expected : {"Default", "Fields"}) {
            HostRun run(m_folder->path());
            QCOMPARE(HostRun::activeName(), expected);
            m_manager->setActiveProfile(m_manager->getProfilesList().at(1));
            QVERIFY(!run.plugins.activateProfile("Nobody's"));
        }
    }
};

KLV_TEST_MAIN(tst_Profiles)
#include "tst_Profiles.moc"
