<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="nl">
<context>
    <name>FirmwareUpdateModelState</name>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="12"/>
        <source>Firmware not loaded or not connected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="15"/>
        <source>Ready to update</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="17"/>
        <source>Updating...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="19"/>
        <source>Timed out waiting for response</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="22"/>
        <source>Disconnected</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="24"/>
        <source>Update failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="26"/>
        <source>Update succeeded!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="28"/>
        <source>Rebooting...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FirmwareUpdateStageDescription</name>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="36"/>
        <source>Ready</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="37"/>
        <source>Erasing</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="38"/>
        <source>Erase failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="39"/>
        <source>Programming</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="40"/>
        <source>Program failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="41"/>
        <source>Verifying</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="42"/>
        <source>Verify failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="43"/>
        <source>Failed</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="44"/>
        <source>Success</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModelState.cpp" line="48"/>
        <source>Unknown</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>firmwareUpdate::FirmwareUpdateModel</name>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModel.cpp" line="85"/>
        <source>The selected firmware bundle is invalid.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModel.cpp" line="148"/>
        <source>The selected firmware file does not contain any firmware for this pump model.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModel.cpp" line="205"/>
        <source>Start could not be sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModel.cpp" line="250"/>
        <source>the pump asked for bytes %1 to %2 of a %3-byte image</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModel.cpp" line="295"/>
        <source>Verify could not be sent</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModel.cpp" line="409"/>
        <source>Firmware bundle loaded
Build version: %1
Build time: %2
Models:
</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <location filename="../../Common/Model/FirmwareUpdate/FirmwareUpdateModel.cpp" line="413"/>
        <source> * %1
</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
