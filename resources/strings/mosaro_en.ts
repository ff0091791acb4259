<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
  <name></name>
  <message id="Accessible.Progress">
    <source></source>
    <translation>Progress</translation>
  </message>
  <message id="Accessible.Rating">
    <source></source>
    <translation>rated %1 of 5</translation>
  </message>
  <message id="Accessible.Referenced">
    <source></source>
    <translation>reference to a file outside the library</translation>
  </message>
  <message id="Accessible.Tagged">
    <source></source>
    <translation>tagged</translation>
  </message>
  <message id="Accessible.Working">
    <source></source>
    <translation>Working</translation>
  </message>
  <message id="Basic.Alert">
    <source></source>
    <translation>Mosaro</translation>
  </message>
  <message id="Basic.Back">
    <source></source>
    <translation>Back</translation>
  </message>
  <message id="Basic.Cancel">
    <source></source>
    <translation>Cancel</translation>
  </message>
  <message id="Basic.Choose">
    <source></source>
    <translation>Choose</translation>
  </message>
  <message id="Basic.Item">
    <source></source>
    <translation>%1 item, %2</translation>
  </message>
  <message id="Basic.Items">
    <source></source>
    <translation>%1 items, %2</translation>
  </message>
  <message id="Basic.More">
    <source></source>
    <translation>and More</translation>
  </message>
  <message id="Basic.NO">
    <source></source>
    <translation>No</translation>
  </message>
  <message id="Basic.No.Collection.Selected">
    <source></source>
    <translation>No collection selected</translation>
  </message>
  <message id="Basic.No.Color.Selected">
    <source></source>
    <translation>No color selected</translation>
  </message>
  <message id="Basic.No.Media">
    <source></source>
    <translation>No items</translation>
  </message>
  <message id="Basic.No.Tag.Selected">
    <source></source>
    <translation>No tag selected</translation>
  </message>
  <message id="Basic.None">
    <source></source>
    <translation>None</translation>
  </message>
  <message id="Basic.OK">
    <source></source>
    <translation>OK</translation>
  </message>
  <message id="Basic.Selected.Item">
    <source></source>
    <translation>%1 of %2 selected</translation>
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
  <message id="Basic.Stop">
    <source></source>
    <translation>Stop</translation>
  </message>
  <message id="Basic.Untitled.Collection">
    <source></source>
    <translation>Untitled Collection</translation>
  </message>
  <message id="Basic.Untitled.Folder">
    <source></source>
    <translation>Untitled Folder</translation>
  </message>
  <message id="Basic.YES">
    <source></source>
    <translation>Yes</translation>
  </message>
  <message id="Document.ACORN">
    <source></source>
    <translation>Acorn Document</translation>
  </message>
  <message id="Document.AFFINITY.DESIGNER">
    <source></source>
    <translation>Affinity Designer Document</translation>
  </message>
  <message id="Document.AFFINITY.PHOTO">
    <source></source>
    <translation>Affinity Photo Document</translation>
  </message>
  <message id="Document.AI">
    <source></source>
    <translation>Illustrator Document</translation>
  </message>
  <message id="Document.BMP">
    <source></source>
    <translation>Bitmap Image</translation>
  </message>
  <message id="Document.EPS">
    <source></source>
    <translation>Encapsulated PostScript</translation>
  </message>
  <message id="Document.GIF">
    <source></source>
    <translation>GIF Image</translation>
  </message>
  <message id="Document.ICNS">
    <source></source>
    <translation>ICNS Icon</translation>
  </message>
  <message id="Document.ICO">
    <source></source>
    <translation>ICO Icon</translation>
  </message>
  <message id="Document.IDRAW">
    <source></source>
    <translation>iDraw Document</translation>
  </message>
  <message id="Document.JPEG">
    <source></source>
    <translation>JPEG Image</translation>
  </message>
  <message id="Document.JPEG2000">
    <source></source>
    <translation>JPEG 2000 Image</translation>
  </message>
  <message id="Document.PDF">
    <source></source>
    <translation>PDF</translation>
  </message>
  <message id="Document.PICT">
    <source></source>
    <translation>PICT Image</translation>
  </message>
  <message id="Document.PIXELMATOR">
    <source></source>
    <translation>Pixelmator Document</translation>
  </message>
  <message id="Document.PNG">
    <source></source>
    <translation>PNG Image</translation>
  </message>
  <message id="Document.Photoshop">
    <source></source>
    <translation>Photoshop Image</translation>
  </message>
  <message id="Document.QuickTime.Image">
    <source></source>
    <translation>QuickTime Image</translation>
  </message>
  <message id="Document.RAW.Image">
    <source></source>
    <translation>RAW Image</translation>
  </message>
  <message id="Document.SKETCH">
    <source></source>
    <translation>Sketch Document</translation>
  </message>
  <message id="Document.SVG">
    <source></source>
    <translation>SVG Graphic</translation>
  </message>
  <message id="Document.TGA">
    <source></source>
    <translation>TGA Image</translation>
  </message>
  <message id="Document.TIFF">
    <source></source>
    <translation>TIFF Image</translation>
  </message>
  <message id="Error.Cannot.Choose">
    <source></source>
    <translation>This cannot be chosen here.</translation>
  </message>
  <message id="Error.Cannot.Choose.Needs">
    <source></source>
    <translation>Choose something whose name ends in: %1.</translation>
  </message>
  <message id="Failure.Collection.Gone">
    <source></source>
    <translation>“%1” is no longer in the library. Select another collection.</translation>
  </message>
  <message id="Failure.Disk.Full">
    <source></source>
    <translation>the disk is full. Make room and import again.</translation>
  </message>
  <message id="Failure.Disk.Gone">
    <source></source>
    <translation>the file or its folder is gone. Check the path and try again.</translation>
  </message>
  <message id="Failure.Disk.NotAllowed">
    <source></source>
    <translation>you are not allowed to. Check who may read and write there.</translation>
  </message>
  <message id="Failure.Disk.ReadOnly">
    <source></source>
    <translation>the disk is read-only. Move the library to one that can be written.</translation>
  </message>
  <message id="Failure.Import.Analysis">
    <source></source>
    <translation>The picture could not be read (%1). Open it in another program and save it again.</translation>
  </message>
  <message id="Failure.Import.Copy">
    <source></source>
    <translation>%1 could not be copied into the library: %2</translation>
  </message>
  <message id="Failure.Import.FolderInFolder">
    <source></source>
    <translation>A folder is read one level deep. Import this folder by itself.</translation>
  </message>
  <message id="Failure.Import.NoAccess">
    <source></source>
    <translation>Mosaro was given no access to the folder %1. Import again and choose this folder or one above it.</translation>
  </message>
  <message id="Failure.Import.NoFile">
    <source></source>
    <translation>There is no file here any more. Check the path and try again.</translation>
  </message>
  <message id="Failure.Import.NoPreview">
    <source></source>
    <translation>No preview could be made of it. Open it in another program and save it again.</translation>
  </message>
  <message id="Failure.Import.NoResources">
    <source></source>
    <translation>This application folder holds no resources. Choose its pictures one by one.</translation>
  </message>
  <message id="Failure.Import.NotAFile">
    <source></source>
    <translation>This has the name of a picture but is no file. Choose the pictures inside it.</translation>
  </message>
  <message id="Failure.Import.NotAccepted">
    <source></source>
    <translation>Mosaro takes no files of this type. Convert it to a picture format first.</translation>
  </message>
  <message id="Failure.Import.Place">
    <source></source>
    <translation>The item's folder could not be made in the library: %1</translation>
  </message>
  <message id="Failure.Import.Write">
    <source></source>
    <translation>%1 could not be written into the library: %2</translation>
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
  <message id="Failure.Query.BadValue">
    <source></source>
    <translation>A value given for “%1” is not of its kind.</translation>
  </message>
  <message id="Failure.Query.NoReference">
    <source></source>
    <translation>“%1” of %2 leads to no record.</translation>
  </message>
  <message id="Failure.Query.NoText">
    <source></source>
    <translation>“%1” is no text and cannot be searched as one.</translation>
  </message>
  <message id="Failure.Query.UnknownAttribute">
    <source></source>
    <translation>There is no “%1” in %2.</translation>
  </message>
  <message id="Failure.Store.Busy">
    <source></source>
    <translation>Another program is using “%1”. Quit that program and try again.</translation>
  </message>
  <message id="Failure.Store.CannotOpen">
    <source></source>
    <translation>“%1” cannot be opened (%2). Check that the disk is there and that you may write to it.</translation>
  </message>
  <message id="Failure.Store.Damaged">
    <source></source>
    <translation>The data file “%1” is damaged (%2). Restore the library from a backup.</translation>
  </message>
  <message id="Failure.Store.Full">
    <source></source>
    <translation>There is no room left on the disk of “%1”. Free some space and try again.</translation>
  </message>
  <message id="Failure.Store.InputOutput">
    <source></source>
    <translation>The disk failed while “%1” was read or written (%2). Check the disk, then try again.</translation>
  </message>
  <message id="Failure.Store.Migration">
    <source></source>
    <translation>“%1” could not be brought up to date and was left as it was. %2</translation>
  </message>
  <message id="Failure.Store.Newer">
    <source></source>
    <translation>“%1” was written by a newer version of Mosaro. Update Mosaro to open this library; nothing in it was changed.</translation>
  </message>
  <message id="Failure.Store.NotAStore">
    <source></source>
    <translation>“%1” is not the data file of a Mosaro library. Choose another library.</translation>
  </message>
  <message id="Failure.Store.Other">
    <source></source>
    <translation>The library's data file “%1” refused the change (%2).</translation>
  </message>
  <message id="Failure.Store.ReadOnly">
    <source></source>
    <translation>“%1” cannot be written. Move the library to a disk you may write to, or ask for permission.</translation>
  </message>
  <message id="Label.All.Files">
    <source></source>
    <translation>All files</translation>
  </message>
  <message id="Label.Height">
    <source></source>
    <translation>Height: %1</translation>
  </message>
  <message id="Label.Supported.Files">
    <source></source>
    <translation>Supported files</translation>
  </message>
  <message id="Label.Width">
    <source></source>
    <translation>Width: %1</translation>
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
  <message id="Lib.Movie">
    <source></source>
    <translation>Movie</translation>
  </message>
  <message id="Lib.Other">
    <source></source>
    <translation>Other</translation>
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
  <message id="Tooltip.Colors">
    <source></source>
    <translation>Colors</translation>
  </message>
</context>
</TS>
