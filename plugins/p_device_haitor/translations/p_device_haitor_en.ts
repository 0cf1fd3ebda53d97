<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="maintenance_panel_Controller_commands">
        <source>Controller commands</source>
        <translation>Controller commands</translation>
    </message>
    <message id="maintenance_panel_Set_program">
        <source>Set program</source>
        <translation>Set program</translation>
    </message>
    <message id="maintenance_panel_Apply">
        <source>Apply</source>
        <translation>Apply</translation>
    </message>
    <message id="maintenance_panel_Set_lock">
        <source>Set lock</source>
        <translation>Set lock</translation>
    </message>
    <message id="maintenance_panel_Lock">
        <source>Lock</source>
        <translation>Lock</translation>
    </message>
    <message id="maintenance_panel_Unlock">
        <source>Unlock</source>
        <translation>Unlock</translation>
    </message>
</context>
</TS>
