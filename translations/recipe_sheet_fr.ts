<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>save successful</source>
        <translation>Sauvegarde réussie</translation>
    </message>
    <message>
        <source>busy, please wait</source>
        <translation>Occupé, veuillez patienter</translation>
    </message>
    <message>
        <source>tip</source>
        <translation>Information</translation>
    </message>
    <message>
        <source>About to autosave, whether to continue?</source>
        <translation>Les modifications vont être enregistrées. Continuer ?</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>N°</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Sauver</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Effacer</translation>
    </message>
    <message>
        <source>error, not available</source>
        <translation>Erreur : non disponible</translation>
    </message>
    <message>
        <source>add success</source>
        <translation>Recette ajoutée</translation>
    </message>
    <message>
        <source>add error</source>
        <translation>Échec de l’ajout</translation>
    </message>
    <message>
        <source>del success</source>
        <translation>Recette effacée</translation>
    </message>
    <message>
        <source>del error</source>
        <translation>Échec de l’effacement</translation>
    </message>
</context>
</TS>
