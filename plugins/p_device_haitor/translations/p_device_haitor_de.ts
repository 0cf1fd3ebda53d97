<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="maintenance_panel_Controller_commands">
        <source>Controller commands</source>
        <translation>Befehle an die Steuerung</translation>
    </message>
    <message id="maintenance_panel_Set_program">
        <source>Set program</source>
        <translation>Programm wählen</translation>
    </message>
    <message id="maintenance_panel_Apply">
        <source>Apply</source>
        <translation>Übernehmen</translation>
    </message>
    <message id="maintenance_panel_Set_lock">
        <source>Set lock</source>
        <translation>Sperre</translation>
    </message>
    <message id="maintenance_panel_Lock">
        <source>Lock</source>
        <translation>Sperren</translation>
    </message>
    <message id="maintenance_panel_Unlock">
        <source>Unlock</source>
        <translation>Entsperren</translation>
    </message>
</context>
</TS>
