<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name></name>
    <message id="maintenance_panel_Controller_commands">
        <source>Controller commands</source>
        <translation>Commandes du contrôleur</translation>
    </message>
    <message id="maintenance_panel_Set_program">
        <source>Set program</source>
        <translation>Choisir le programme</translation>
    </message>
    <message id="maintenance_panel_Apply">
        <source>Apply</source>
        <translation>Appliquer</translation>
    </message>
    <message id="maintenance_panel_Set_lock">
        <source>Set lock</source>
        <translation>Verrouillage</translation>
    </message>
    <message id="maintenance_panel_Lock">
        <source>Lock</source>
        <translation>Verrouiller</translation>
    </message>
    <message id="maintenance_panel_Unlock">
        <source>Unlock</source>
        <translation>Déverrouiller</translation>
    </message>
</context>
</TS>
