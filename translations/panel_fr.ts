<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name>OnScreenKeyboard</name>
    <message>
        <source>The screen is small: keys are only %1 mm.</source>
        <translation>Petit écran : touches de %1 mm seulement.</translation>
    </message>
    <message>
        <source>Enter a number.</source>
        <translation>Entrez un nombre.</translation>
    </message>
    <message>
        <source>This is not a number.</source>
        <translation>Ce n’est pas un nombre.</translation>
    </message>
    <message>
        <source>Only whole numbers are possible.</source>
        <translation>Nombres entiers uniquement.</translation>
    </message>
    <message>
        <source>Digits after the point: %1 at most.</source>
        <translation>Décimales : %1 au maximum.</translation>
    </message>
    <message>
        <source>Too many digits.</source>
        <translation>Trop de chiffres.</translation>
    </message>
    <message>
        <source>Too small: the smallest value is %1.</source>
        <translation>Trop petit : le minimum est %1.</translation>
    </message>
    <message>
        <source>Too large: the largest value is %1.</source>
        <translation>Trop grand : le maximum est %1.</translation>
    </message>
    <message>
        <source>Too long: the greatest length is %1.</source>
        <translation>Trop long : %1 caractères au maximum.</translation>
    </message>
    <message>
        <source>No value is possible: the limits are %1 to %2.</source>
        <translation>Aucune valeur possible : limites de %1 à %2.</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Texte</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
    <message>
        <source>Old: %1</source>
        <translation>Ancien : %1</translation>
    </message>
    <message>
        <source>Length: up to %1</source>
        <translation>Longueur : %1 max.</translation>
    </message>
    <message>
        <source>Min: %1</source>
        <translation>Min : %1</translation>
    </message>
    <message>
        <source>Max: %1</source>
        <translation>Max : %1</translation>
    </message>
    <message>
        <source>CLR</source>
        <comment>key that clears the whole entry, three letters</comment>
        <translation>CLR</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
</context>
<context>
    <name>PanelSession</name>
    <message>
        <source>Changes that are not saved were not sent.</source>
        <translation>Les modifications non enregistrées n&apos;ont pas été envoyées.</translation>
    </message>
</context>
<context>
    <name>QPlatformTheme</name>
    <message>
        <source>&amp;Yes</source>
        <translation>Oui</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>Non</translation>
    </message>
</context>
<context>
    <name>RecipeTransfer</name>
    <message>
        <source>%1 Nothing was sent.</source>
        <translation>%1 Rien n&apos;a été envoyé.</translation>
    </message>
    <message>
        <source>Recipes are being added or deleted; try again in a moment.</source>
        <translation>Des recettes sont en cours d&apos;ajout ou de suppression ; réessayez dans un instant.</translation>
    </message>
    <message>
        <source>No plug-in that is loaded can load recipes.</source>
        <translation>Aucun module chargé ne peut lire les recettes.</translation>
    </message>
    <message>
        <source>No recipe is selected.</source>
        <translation>Aucune recette n&apos;est sélectionnée.</translation>
    </message>
    <message>
        <source>It is not known of which group the recipe is; tap the recipe.</source>
        <translation>Le groupe de la recette n&apos;est pas connu ; touchez la recette.</translation>
    </message>
    <message>
        <source>Group %1 cannot be read from the recipe file.</source>
        <translation>Le groupe %1 ne peut pas être lu dans le fichier de recettes.</translation>
    </message>
    <message>
        <source>Group %1 has no items.</source>
        <translation>Le groupe %1 n&apos;a aucun élément.</translation>
    </message>
    <message>
        <source>Group %1 has no recipe %2.</source>
        <translation>Le groupe %1 n&apos;a pas de recette %2.</translation>
    </message>
    <message>
        <source>Recipe %1</source>
        <translation>Recette %1</translation>
    </message>
    <message>
        <source>Item %1</source>
        <translation>Élément %1</translation>
    </message>
    <message>
        <source>%1 has no value.</source>
        <translation>%1 n&apos;a pas de valeur.</translation>
    </message>
    <message>
        <source>The recipe file holds &quot;%1&quot; more than once.</source>
        <translation>Le fichier de recettes contient « %1 » plusieurs fois.</translation>
    </message>
    <message>
        <source>%1 has the data type %2, which is not known.</source>
        <translation>%1 a le type de données %2, qui est inconnu.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; is not a number.</source>
        <translation>%1 : « %2 » n&apos;est pas un nombre.</translation>
    </message>
    <message>
        <source>%1: %2 has too many decimals.</source>
        <translation>%1 : %2 a trop de décimales.</translation>
    </message>
    <message>
        <source>%1: %2 does not fit into its register.</source>
        <translation>%1 : %2 ne tient pas dans son registre.</translation>
    </message>
    <message>
        <source>%1: the text &quot;%2&quot; is longer than %3 bytes.</source>
        <translation>%1 : le texte « %2 » dépasse %3 octets.</translation>
    </message>
    <message>
        <source>%1 has no room among the registers of the recipe.</source>
        <translation>%1 n&apos;a pas de place parmi les registres de la recette.</translation>
    </message>
    <message>
        <source>Notification</source>
        <translation>Notification</translation>
    </message>
    <message>
        <source>%1 has no register address.</source>
        <translation>%1 n&apos;a pas d&apos;adresse de registre.</translation>
    </message>
    <message>
        <source>%1: there is no link to &quot;%2&quot;.</source>
        <translation>%1 : il n&apos;y a pas de liaison avec « %2 ».</translation>
    </message>
    <message>
        <source>The link to &quot;%1&quot; is down.</source>
        <translation>La liaison avec « %1 » est interrompue.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has no register %3 %4.</source>
        <translation>%1 : « %2 » n&apos;a pas de registre %3 %4.</translation>
    </message>
    <message>
        <source>%1 and %2 share the register %3 %4.</source>
        <translation>%1 et %2 partagent le registre %3 %4.</translation>
    </message>
    <message>
        <source>The controller does not answer.</source>
        <translation>L&apos;automate ne répond pas.</translation>
    </message>
    <message>
        <source>Sent to the controller: %1</source>
        <translation>Envoyé à l&apos;automate : %1</translation>
    </message>
</context>
<context>
    <name>RegisterModel</name>
    <message>
        <source>Selected group</source>
        <translation>Groupe sélectionné</translation>
    </message>
    <message>
        <source>Selected recipe</source>
        <translation>Recette sélectionnée</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Nom</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Type</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Valeur</translation>
    </message>
</context>
<context>
    <name>RegisterView</name>
    <message>
        <source>A register needs a type, such as LW.</source>
        <translation>Un registre doit avoir un type, par exemple LW.</translation>
    </message>
    <message>
        <source>%1 %2 cannot be written.</source>
        <translation>Impossible d’écrire dans %1 %2.</translation>
    </message>
    <message>
        <source>Watch</source>
        <translation>Surveiller</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Retirer</translation>
    </message>
</context>
<context>
    <name>TransferBox</name>
    <message>
        <source>Send to controller (F9)</source>
        <translation>Envoyer à l&apos;automate (F9)</translation>
    </message>
    <message>
        <source>Link to %1</source>
        <translation>Liaison avec %1</translation>
    </message>
</context>
</TS>
