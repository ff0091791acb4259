<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
  <name></name>
  <message id="Basic.Alert">
    <source></source>
    <translation>Mosaro</translation>
  </message>
  <message id="Basic.Cancel">
    <source></source>
    <translation>Cancel</translation>
  </message>
  <message id="Basic.Choose">
    <source></source>
    <translation>Choose</translation>
  </message>
  <message id="Basic.More">
    <source></source>
    <translation>and More</translation>
  </message>
  <message id="Basic.OK">
    <source></source>
    <translation>OK</translation>
  </message>
  <message id="Basic.Size.Byte">
    <source></source>
    <translation>1 byte</translation>
  </message>
  <message id="Basic.Size.Bytes">
    <source></source>
    <translation>%1 bytes</translation>
  </message>
  <message id="Basic.Size.GB">
    <source></source>
    <translation>%1 GB</translation>
  </message>
  <message id="Basic.Size.KB">
    <source></source>
    <translation>%1 KB</translation>
  </message>
  <message id="Basic.Size.MB">
    <source></source>
    <translation>%1 MB</translation>
  </message>
  <message id="Basic.Size.PB">
    <source></source>
    <translation>%1 PB</translation>
  </message>
  <message id="Basic.Size.TB">
    <source></source>
    <translation>%1 TB</translation>
  </message>
  <message id="Basic.Size.Zero">
    <source></source>
    <translation>Zero KB</translation>
  </message>
  <message id="Basic.Untitled.Collection">
    <source></source>
    <translation>Untitled Collection</translation>
  </message>
  <message id="Basic.Untitled.Folder">
    <source></source>
    <translation>Untitled Folder</translation>
  </message>
  <message id="Failure.Collection.Gone">
    <source></source>
    <translation>“%1” is no longer in the library. Select another collection.</translation>
  </message>
  <message id="Failure.PropertyList.Damaged">
    <source></source>
    <translation>The data is damaged or is no property list. Restore the file from a backup, or delete it to start afresh.</translation>
  </message>
  <message id="Failure.PropertyList.File">
    <source></source>
    <translation>“%1”: %2</translation>
  </message>
  <message id="Failure.PropertyList.Missing">
    <source></source>
    <translation>The file does not exist.</translation>
  </message>
  <message id="Failure.PropertyList.Oversized">
    <source></source>
    <translation>The property list is too large or too deeply nested to be read safely.</translation>
  </message>
  <message id="Failure.PropertyList.Unsupported">
    <source></source>
    <translation>One of the values cannot be stored in a property list.</translation>
  </message>
  <message id="Lib.All">
    <source></source>
    <translation>All</translation>
  </message>
  <message id="Lib.Animated.GIF">
    <source></source>
    <translation>Animated GIF</translation>
  </message>
  <message id="Lib.Button">
    <source></source>
    <translation>Button</translation>
  </message>
  <message id="Lib.Collections">
    <source></source>
    <translation>Collections</translation>
  </message>
  <message id="Lib.Icon">
    <source></source>
    <translation>Icon</translation>
  </message>
  <message id="Lib.Interface">
    <source></source>
    <translation>Interface</translation>
  </message>
  <message id="Lib.Library">
    <source></source>
    <translation>Library</translation>
  </message>
  <message id="Lib.PDF">
    <source></source>
    <translation>PDF</translation>
  </message>
  <message id="Lib.Phone">
    <source></source>
    <translation>Phone</translation>
  </message>
  <message id="Lib.Recent">
    <source></source>
    <translation>Recent</translation>
  </message>
  <message id="Lib.Screen">
    <source></source>
    <translation>Screen</translation>
  </message>
  <message id="Lib.Tablet">
    <source></source>
    <translation>Tablet</translation>
  </message>
  <message id="Lib.Wallpaper">
    <source></source>
    <translation>Wallpaper</translation>
  </message>
  <message id="Lib.Web">
    <source></source>
    <translation>Web</translation>
  </message>
  <message id="Lib.Your.Collections">
    <source></source>
    <translation>Your Collections</translation>
  </message>
  <message id="Message.Choose.Accessible.Folders">
    <source></source>
    <translation>This library keeps its pictures where they are. Choose the folder that holds them, or one above it, so that Mosaro can read it later.</translation>
  </message>
  <message id="Message.Choose.Folder">
    <source></source>
    <translation>Choose Folder</translation>
  </message>
  <message id="Message.Import">
    <source></source>
    <translation>Import into “%1”</translation>
  </message>
  <message id="Message.Import.Completed">
    <source></source>
    <translation>Import finished</translation>
  </message>
  <message id="Message.Import.Completed.Item">
    <source></source>
    <translation>%1 item imported</translation>
  </message>
  <message id="Message.Import.Completed.Items">
    <source></source>
    <translation>%1 items imported</translation>
  </message>
</context>
</TS>
