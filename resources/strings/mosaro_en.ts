<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en">
<context>
  <name></name>
  <message id="About.Copyright">
    <source></source>
    <translation>© %1 The Mosaro developers</translation>
  </message>
  <message id="About.Developer.Info">
    <source></source>
    <translation>The Mosaro developers</translation>
  </message>
  <message id="About.Development">
    <source></source>
    <translation>DEVELOPMENT</translation>
  </message>
  <message id="About.Document">
    <source></source>
    <translation>DOCUMENTATION AND ARTWORK</translation>
  </message>
  <message id="About.Document.Info">
    <source></source>
    <translation>Guide, icons and sounds made for Mosaro</translation>
  </message>
  <message id="About.Special.Thanks">
    <source></source>
    <translation>Special thanks to %1</translation>
  </message>
  <message id="About.Thanks">
    <source></source>
    <translation>THANKS</translation>
  </message>
  <message id="About.Thanks.Info">
    <source></source>
    <translation>To Qt, libvips, SQLite, ICU and everyone who makes and shares free software</translation>
  </message>
  <message id="About.Title">
    <source></source>
    <translation>About Mosaro</translation>
  </message>
  <message id="About.Version">
    <source></source>
    <translation>%1 %2 (%3)</translation>
  </message>
  <message id="Accessible.Collection.Name">
    <source></source>
    <translation>Name of the collection</translation>
  </message>
  <message id="Accessible.Collections">
    <source></source>
    <translation>Collections</translation>
  </message>
  <message id="Accessible.Divider">
    <source></source>
    <translation>Divider between sidebar and browser</translation>
  </message>
  <message id="Accessible.Grid">
    <source></source>
    <translation>Items</translation>
  </message>
  <message id="Accessible.Guide">
    <source></source>
    <translation>Guide</translation>
  </message>
  <message id="Accessible.Import.Preview">
    <source></source>
    <translation>Latest imported picture</translation>
  </message>
  <message id="Accessible.Label.Mixed">
    <source></source>
    <translation>Some of the selection</translation>
  </message>
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
  <message id="Accessible.Tag.Name">
    <source></source>
    <translation>Name of the tag</translation>
  </message>
  <message id="Accessible.Tagged">
    <source></source>
    <translation>tagged</translation>
  </message>
  <message id="Accessible.Tags">
    <source></source>
    <translation>Tags</translation>
  </message>
  <message id="Accessible.Tags.Of.Selection">
    <source></source>
    <translation>Tags of the selected items</translation>
  </message>
  <message id="Accessible.Working">
    <source></source>
    <translation>Working</translation>
  </message>
  <message id="Basic.Add">
    <source></source>
    <translation>Add</translation>
  </message>
  <message id="Basic.Add.New.Tag">
    <source></source>
    <translation>Adding the new tag…</translation>
  </message>
  <message id="Basic.Add.Tags">
    <source></source>
    <translation>Adding the tag: %1 %</translation>
  </message>
  <message id="Basic.Alert">
    <source></source>
    <translation>Mosaro</translation>
  </message>
  <message id="Basic.All">
    <source></source>
    <translation>All</translation>
  </message>
  <message id="Basic.Any">
    <source></source>
    <translation>Any</translation>
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
  <message id="Basic.Choose.Library">
    <source></source>
    <translation>Choose Library…</translation>
  </message>
  <message id="Basic.Clipboard">
    <source></source>
    <translation>Clipboard</translation>
  </message>
  <message id="Basic.Close">
    <source></source>
    <translation>Close</translation>
  </message>
  <message id="Basic.Collection.Path">
    <source></source>
    <translation>In “%1”</translation>
  </message>
  <message id="Basic.Color.View.Options">
    <source></source>
    <translation>View Options</translation>
  </message>
  <message id="Basic.Colors">
    <source></source>
    <translation>Colors</translation>
  </message>
  <message id="Basic.Continue">
    <source></source>
    <translation>Continue</translation>
  </message>
  <message id="Basic.Copy.List">
    <source></source>
    <translation>Copy List</translation>
  </message>
  <message id="Basic.Copyright">
    <source></source>
    <translation>Copyright</translation>
  </message>
  <message id="Basic.Create">
    <source></source>
    <translation>Create</translation>
  </message>
  <message id="Basic.Create.Library">
    <source></source>
    <translation>Create Library…</translation>
  </message>
  <message id="Basic.Current">
    <source></source>
    <translation>Current Collection</translation>
  </message>
  <message id="Basic.Delete">
    <source></source>
    <translation>Delete</translation>
  </message>
  <message id="Basic.Delete.Collections">
    <source></source>
    <translation>Deleting collections…</translation>
  </message>
  <message id="Basic.Delete.Media">
    <source></source>
    <translation>Removing files: %1 %</translation>
  </message>
  <message id="Basic.Delete.Tags">
    <source></source>
    <translation>Deleting tags…</translation>
  </message>
  <message id="Basic.Downloading.Image">
    <source></source>
    <translation>Downloading the image…</translation>
  </message>
  <message id="Basic.Drop.Images">
    <source></source>
    <translation>Drop pictures or folders here</translation>
  </message>
  <message id="Basic.Empty.Folder">
    <source></source>
    <translation>No pictures in this folder</translation>
  </message>
  <message id="Basic.Enter.New.Tag">
    <source></source>
    <translation>Name</translation>
  </message>
  <message id="Basic.Find">
    <source></source>
    <translation>&amp;Find</translation>
  </message>
  <message id="Basic.Found.Item">
    <source></source>
    <translation>%1 found</translation>
  </message>
  <message id="Basic.Hide.Sidebar">
    <source></source>
    <translation>Hide &amp;Sidebar</translation>
  </message>
  <message id="Basic.Import">
    <source></source>
    <translation>Import…</translation>
  </message>
  <message id="Basic.Import.Media">
    <source></source>
    <translation>Importing %1</translation>
  </message>
  <message id="Basic.Import.Preparing">
    <source></source>
    <translation>Preparing the import…</translation>
  </message>
  <message id="Basic.Item">
    <source></source>
    <translation>%1 item, %2</translation>
  </message>
  <message id="Basic.Items">
    <source></source>
    <translation>%1 items, %2</translation>
  </message>
  <message id="Basic.Lets.Go">
    <source></source>
    <translation>Let’s Go</translation>
  </message>
  <message id="Basic.Load.Library">
    <source></source>
    <translation>Opening the library…</translation>
  </message>
  <message id="Basic.Mark">
    <source></source>
    <translation>Mark</translation>
  </message>
  <message id="Basic.Mark.As.Like">
    <source></source>
    <translation>As Liked</translation>
  </message>
  <message id="Basic.Mark.As.Unlike">
    <source></source>
    <translation>As Not Liked</translation>
  </message>
  <message id="Basic.More">
    <source></source>
    <translation>and More</translation>
  </message>
  <message id="Basic.Move.Media">
    <source></source>
    <translation>Moving items: %1 %</translation>
  </message>
  <message id="Basic.NO">
    <source></source>
    <translation>No</translation>
  </message>
  <message id="Basic.Next">
    <source></source>
    <translation>Next</translation>
  </message>
  <message id="Basic.No">
    <source></source>
    <translation>No</translation>
  </message>
  <message id="Basic.No.Collection.Selected">
    <source></source>
    <translation>Select a collection in the sidebar to see its pictures</translation>
  </message>
  <message id="Basic.No.Color.Selected">
    <source></source>
    <translation>No color selected</translation>
  </message>
  <message id="Basic.No.Library">
    <source></source>
    <translation>No Library Open</translation>
  </message>
  <message id="Basic.No.Media">
    <source></source>
    <translation>No pictures to show here</translation>
  </message>
  <message id="Basic.No.Tag.Selected">
    <source></source>
    <translation>No tag selected</translation>
  </message>
  <message id="Basic.None">
    <source></source>
    <translation>None</translation>
  </message>
  <message id="Basic.Note">
    <source></source>
    <translation>Note</translation>
  </message>
  <message id="Basic.OK">
    <source></source>
    <translation>OK</translation>
  </message>
  <message id="Basic.Of.The.Following.Are.True">
    <source></source>
    <translation>of the following are true</translation>
  </message>
  <message id="Basic.Previous">
    <source></source>
    <translation>Previous</translation>
  </message>
  <message id="Basic.Quit">
    <source></source>
    <translation>Quit</translation>
  </message>
  <message id="Basic.Remove.Tags.Item">
    <source></source>
    <translation>Taking the tag off: %1 %</translation>
  </message>
  <message id="Basic.Reveal">
    <source></source>
    <translation>Show in Folder</translation>
  </message>
  <message id="Basic.Save">
    <source></source>
    <translation>Save</translation>
  </message>
  <message id="Basic.Select.All">
    <source></source>
    <translation>Select All</translation>
  </message>
  <message id="Basic.Selected.Item">
    <source></source>
    <translation>%1 of %2 selected</translation>
  </message>
  <message id="Basic.Show.Focus.Colors">
    <source></source>
    <translation>Focus colors</translation>
  </message>
  <message id="Basic.Show.Like.Colors.Only">
    <source></source>
    <translation>Liked colors only</translation>
  </message>
  <message id="Basic.Show.Other.Colors">
    <source></source>
    <translation>Other colors</translation>
  </message>
  <message id="Basic.Show.Primary.Colors">
    <source></source>
    <translation>Primary colors</translation>
  </message>
  <message id="Basic.Show.Secondary.Colors">
    <source></source>
    <translation>Secondary colors</translation>
  </message>
  <message id="Basic.Show.Sidebar">
    <source></source>
    <translation>Show &amp;Sidebar</translation>
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
  <message id="Basic.Start">
    <source></source>
    <translation>Start</translation>
  </message>
  <message id="Basic.Stop">
    <source></source>
    <translation>Stop</translation>
  </message>
  <message id="Basic.Stopping">
    <source></source>
    <translation>Stopping…</translation>
  </message>
  <message id="Basic.Title">
    <source></source>
    <translation>Title</translation>
  </message>
  <message id="Basic.Total">
    <source></source>
    <translation>Rules: %1</translation>
  </message>
  <message id="Basic.URL">
    <source></source>
    <translation>URL</translation>
  </message>
  <message id="Basic.Untitled.Collection">
    <source></source>
    <translation>Untitled Collection</translation>
  </message>
  <message id="Basic.Untitled.Folder">
    <source></source>
    <translation>Untitled Folder</translation>
  </message>
  <message id="Basic.Untitled.Smart.Collection">
    <source></source>
    <translation>Untitled Smart Collection</translation>
  </message>
  <message id="Basic.Untitled.Tag">
    <source></source>
    <translation>Untitled Tag</translation>
  </message>
  <message id="Basic.Update.Tag">
    <source></source>
    <translation>Updating tags…</translation>
  </message>
  <message id="Basic.Version">
    <source></source>
    <translation>Version</translation>
  </message>
  <message id="Basic.YES">
    <source></source>
    <translation>Yes</translation>
  </message>
  <message id="Basic.Yes">
    <source></source>
    <translation>Yes</translation>
  </message>
  <message id="CX.Delete">
    <source></source>
    <translation>Delete…</translation>
  </message>
  <message id="CX.Edit">
    <source></source>
    <translation>Edit</translation>
  </message>
  <message id="CX.Edit.Smart">
    <source></source>
    <translation>Edit “%1”…</translation>
  </message>
  <message id="CX.New.Tag">
    <source></source>
    <translation>New Tag</translation>
  </message>
  <message id="CX.Rating">
    <source></source>
    <translation>Rating</translation>
  </message>
  <message id="CX.Rename">
    <source></source>
    <translation>Rename “%1”</translation>
  </message>
  <message id="CX.Show.Color">
    <source></source>
    <translation>Show Color</translation>
  </message>
  <message id="CX.Sort.Ascending">
    <source></source>
    <translation>&amp;Ascending</translation>
  </message>
  <message id="CX.Sort.By">
    <source></source>
    <translation>Sort By</translation>
  </message>
  <message id="CX.Sort.Date.Created">
    <source></source>
    <translation>Date &amp;Created</translation>
  </message>
  <message id="CX.Sort.Date.Imported">
    <source></source>
    <translation>Date &amp;Imported</translation>
  </message>
  <message id="CX.Sort.Date.Modified">
    <source></source>
    <translation>Date &amp;Modified</translation>
  </message>
  <message id="CX.Sort.Descending">
    <source></source>
    <translation>&amp;Descending</translation>
  </message>
  <message id="CX.Sort.FileSize">
    <source></source>
    <translation>File &amp;Size</translation>
  </message>
  <message id="CX.Sort.Height">
    <source></source>
    <translation>&amp;Height</translation>
  </message>
  <message id="CX.Sort.Last.Opened">
    <source></source>
    <translation>Date &amp;Last Opened</translation>
  </message>
  <message id="CX.Sort.Rating">
    <source></source>
    <translation>&amp;Rating</translation>
  </message>
  <message id="CX.Sort.Title">
    <source></source>
    <translation>&amp;Title</translation>
  </message>
  <message id="CX.Sort.Width">
    <source></source>
    <translation>&amp;Width</translation>
  </message>
  <message id="CX.Tag.Color">
    <source></source>
    <translation>Color</translation>
  </message>
  <message id="CX.Tags">
    <source></source>
    <translation>Tags</translation>
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
  <message id="Error.Already.Exsts">
    <source></source>
    <translation>There is a tag “%1” already. Choose another name.</translation>
  </message>
  <message id="Error.Cannot.Choose">
    <source></source>
    <translation>This cannot be chosen here.</translation>
  </message>
  <message id="Error.Cannot.Choose.Needs">
    <source></source>
    <translation>Choose something whose name ends in: %1.</translation>
  </message>
  <message id="Error.Create.Library">
    <source></source>
    <translation>“%1” could not be created in “%2”.</translation>
  </message>
  <message id="Error.Damaged.Library">
    <source></source>
    <translation>The library could not be opened. Continue to choose another library or to create a new one. Nothing in this one has been changed.</translation>
  </message>
  <message id="Error.Import.Media">
    <source></source>
    <translation>Some files could not be imported.</translation>
  </message>
  <message id="Error.Open.Address">
    <source></source>
    <translation>No program could be found that opens this address. Write it into a browser or a mail program yourself: %1</translation>
  </message>
  <message id="Failure.Child.Died">
    <source></source>
    <translation>The program “%1” could not read the file. The file may be damaged; open it in the program that made it and save it again.</translation>
  </message>
  <message id="Failure.Child.Missing">
    <source></source>
    <translation>The program “%1”, which reads this format, is not installed. Install it and import the file again.</translation>
  </message>
  <message id="Failure.Child.NotStarted">
    <source></source>
    <translation>The program “%1”, which reads this format, could not be started. Close other programs and import the file again.</translation>
  </message>
  <message id="Failure.Child.Output">
    <source></source>
    <translation>The file unfolds into more data than can be imported. Save it in a plainer form.</translation>
  </message>
  <message id="Failure.Collection.Gone">
    <source></source>
    <translation>“%1” is no longer in the library. Select another collection.</translation>
  </message>
  <message id="Failure.Ctl.AllOrAny">
    <source></source>
    <translation>Only one of --all and --any can be used</translation>
  </message>
  <message id="Failure.Ctl.CollectionTitle">
    <source></source>
    <translation>A collection needs a title. Give one with --collection TITLE.</translation>
  </message>
  <message id="Failure.Ctl.EmptyTitle">
    <source></source>
    <translation>A title is missing</translation>
  </message>
  <message id="Failure.Ctl.General">
    <source></source>
    <translation>%1. See: mosaroctl --help</translation>
  </message>
  <message id="Failure.Ctl.Kind">
    <source></source>
    <translation>A kind is one of %1</translation>
  </message>
  <message id="Failure.Ctl.Label">
    <source></source>
    <translation>A label is 0 to 7 or one of %1</translation>
  </message>
  <message id="Failure.Ctl.ManyCollections">
    <source></source>
    <translation>Several collections are called “%1”. Rename all but one, or choose another.</translation>
  </message>
  <message id="Failure.Ctl.ManyTitles">
    <source></source>
    <translation>Several collections are called “%1”. Give the ID of one. See: mosaroctl collections</translation>
  </message>
  <message id="Failure.Ctl.NoCollection">
    <source></source>
    <translation>There is no collection “%1”. See: mosaroctl collections</translation>
  </message>
  <message id="Failure.Ctl.NoColor">
    <source></source>
    <translation>No item has the color “%1”. See: mosaroctl colors</translation>
  </message>
  <message id="Failure.Ctl.NoCommand">
    <source></source>
    <translation>A command is missing. See: mosaroctl --help</translation>
  </message>
  <message id="Failure.Ctl.NoFolder">
    <source></source>
    <translation>“%1” is no folder. Choose a folder. See: mosaroctl collections</translation>
  </message>
  <message id="Failure.Ctl.NoItem">
    <source></source>
    <translation>There is no item %1. See: mosaroctl list</translation>
  </message>
  <message id="Failure.Ctl.NoKeyword">
    <source></source>
    <translation>The text to search for is empty</translation>
  </message>
  <message id="Failure.Ctl.NoLibrary">
    <source></source>
    <translation>There is no library at %1. Make one with: mosaroctl create PATH</translation>
  </message>
  <message id="Failure.Ctl.NoOperands">
    <source></source>
    <translation>This command takes nothing after its options</translation>
  </message>
  <message id="Failure.Ctl.NoOwner">
    <source></source>
    <translation>“%1” is a folder or a smart collection, which own no items. Choose a collection.</translation>
  </message>
  <message id="Failure.Ctl.NoRules">
    <source></source>
    <translation>A smart collection needs rules. Give them with --rules JSON</translation>
  </message>
  <message id="Failure.Ctl.NoTag">
    <source></source>
    <translation>There is no tag “%1”. See: mosaroctl tags</translation>
  </message>
  <message id="Failure.Ctl.NoTarget">
    <source></source>
    <translation>The collection to move into is missing. Give it with --to COLLECTION</translation>
  </message>
  <message id="Failure.Ctl.NotSaved">
    <source></source>
    <translation>The changes could not be saved. Check that the disk has space and try again.</translation>
  </message>
  <message id="Failure.Ctl.OneSelection">
    <source></source>
    <translation>Only one of --collection, --smart, --tag, --color, --kind and --recent can be used</translation>
  </message>
  <message id="Failure.Ctl.Operands">
    <source></source>
    <translation>This command takes %1 after its options</translation>
  </message>
  <message id="Failure.Ctl.PathTaken">
    <source></source>
    <translation>Something stands at %1 already. Choose another path.</translation>
  </message>
  <message id="Failure.Ctl.Rating">
    <source></source>
    <translation>A rating is 0 to 5</translation>
  </message>
  <message id="Failure.Ctl.Rule">
    <source></source>
    <translation>Rule %1 is not of the form: %2</translation>
  </message>
  <message id="Failure.Ctl.Rule.Date">
    <source></source>
    <translation>give dates as YYYY-MM-DD, from %1 to %2</translation>
  </message>
  <message id="Failure.Ctl.Rule.Key">
    <source></source>
    <translation>“%1” is no key of a rule</translation>
  </message>
  <message id="Failure.Ctl.Rule.Number">
    <source></source>
    <translation>give %1 as a number</translation>
  </message>
  <message id="Failure.Ctl.Rule.Text">
    <source></source>
    <translation>give %1 as a text</translation>
  </message>
  <message id="Failure.Ctl.Rule.Type">
    <source></source>
    <translation>give an object with %1, the number of a kind of rule</translation>
  </message>
  <message id="Failure.Ctl.Rules.Count">
    <source></source>
    <translation>--rules takes a JSON array of 1 to %1 objects</translation>
  </message>
  <message id="Failure.Ctl.Rules.Json">
    <source></source>
    <translation>--rules is no JSON: %1 at character %2. Put it in single quotes for the shell</translation>
  </message>
  <message id="Failure.Ctl.SearchField">
    <source></source>
    <translation>A search looks in title, copyright, notes or url</translation>
  </message>
  <message id="Failure.Ctl.SortKey">
    <source></source>
    <translation>A sort key is one of %1</translation>
  </message>
  <message id="Failure.Ctl.Stopped">
    <source></source>
    <translation>Stopped at file %1. What was imported until then stays.</translation>
  </message>
  <message id="Failure.Ctl.UnknownCommand">
    <source></source>
    <translation>There is no command “%1”. See: mosaroctl --help</translation>
  </message>
  <message id="Failure.Ctl.Unverified">
    <source></source>
    <translation>The records of the library could not be read. Try again; if it stays so, bring back the library from a backup.</translation>
  </message>
  <message id="Failure.Ctl.Usage">
    <source></source>
    <translation>%1. See: mosaroctl %2 --help</translation>
  </message>
  <message id="Failure.Design.NoPreview">
    <source></source>
    <translation>The document carries no preview of itself that can be read. Save it again with its preview, or export it as PNG or PDF and import that.</translation>
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
  <message id="Failure.Document.Encrypted">
    <source></source>
    <translation>The document is protected by a password or encrypted. Save it without protection and import it again.</translation>
  </message>
  <message id="Failure.Document.TooThin">
    <source></source>
    <translation>The page is %1 by %2 points, too thin to be drawn. Save the document with a wider page and import it again.</translation>
  </message>
  <message id="Failure.Image.Damaged">
    <source></source>
    <translation>The picture is damaged or incomplete. Open it in another program and save it again, or fetch it once more.</translation>
  </message>
  <message id="Failure.Image.Empty">
    <source></source>
    <translation>The file is empty. Save it or fetch it again.</translation>
  </message>
  <message id="Failure.Image.Encoding">
    <source></source>
    <translation>The preview of the picture could not be made. Try again.</translation>
  </message>
  <message id="Failure.Image.FileTooLarge">
    <source></source>
    <translation>The file is too large to be imported. Make it smaller first.</translation>
  </message>
  <message id="Failure.Image.Misnamed">
    <source></source>
    <translation>Named like a “%1”, it holds a “%2”. Give its name the right extension and import it again.</translation>
  </message>
  <message id="Failure.Image.NotAPicture">
    <source></source>
    <translation>It holds no picture that can be imported, whatever its name says. Save it in another format.</translation>
  </message>
  <message id="Failure.Image.TooLarge">
    <source></source>
    <translation>The picture is %1 by %2 pixels, more than can be imported. Scale it down first.</translation>
  </message>
  <message id="Failure.Image.TooSlow">
    <source></source>
    <translation>Reading the picture took too long. Save it again in another program, in a plainer form.</translation>
  </message>
  <message id="Failure.Image.Unreadable">
    <source></source>
    <translation>The file cannot be read. Check that it still exists and that you may open it.</translation>
  </message>
  <message id="Failure.Import.Analysis">
    <source></source>
    <translation>The picture could not be read (%1). Open it in another program and save it again.</translation>
  </message>
  <message id="Failure.Import.Copy">
    <source></source>
    <translation>%1 could not be copied into the library: %2</translation>
  </message>
  <message id="Failure.Import.Folder">
    <source></source>
    <translation>The folder could not be read: %1</translation>
  </message>
  <message id="Failure.Import.FolderInFolder">
    <source></source>
    <translation>A folder is read one level deep. Import this folder by itself.</translation>
  </message>
  <message id="Failure.Import.Name">
    <source></source>
    <translation>The file’s name has characters that are no valid text. Rename the file and import it again.</translation>
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
    <translation>This has the name of a picture but is no ordinary file. Save the picture as a file and import that.</translation>
  </message>
  <message id="Failure.Import.NotAccepted">
    <source></source>
    <translation>Mosaro takes no files of this type. Convert it to a picture format first.</translation>
  </message>
  <message id="Failure.Import.Place">
    <source></source>
    <translation>The item's folder could not be made in the library: %1</translation>
  </message>
  <message id="Failure.Import.Without.Snapshot">
    <source></source>
    <translation>--import works together with --snapshot only; to import without a window use mosaroctl import.</translation>
  </message>
  <message id="Failure.Import.Write">
    <source></source>
    <translation>%1 could not be written into the library: %2</translation>
  </message>
  <message id="Failure.Library.CannotCreate">
    <source></source>
    <translation>“%1” could not be created. Check that the disk is there, has room, and may be written to.</translation>
  </message>
  <message id="Failure.Library.CannotLock">
    <source></source>
    <translation>“%1” could not be reserved for this program (%2). Check that it is there and that you may open it.</translation>
  </message>
  <message id="Failure.Library.CannotReplace">
    <source></source>
    <translation>“%1” could not be replaced. Choose another name.</translation>
  </message>
  <message id="Failure.Library.Exists">
    <source></source>
    <translation>“%1” exists already. Choose another name.</translation>
  </message>
  <message id="Failure.Library.Held">
    <source></source>
    <translation>“%1” is open in another program. Close it there, then open it here.</translation>
  </message>
  <message id="Failure.Library.HeldBy">
    <source></source>
    <translation>“%1” is open in “%2” (process %3). Close it there, then open it here.</translation>
  </message>
  <message id="Failure.Library.Missing">
    <source></source>
    <translation>There is no library at “%1”. Choose or create another.</translation>
  </message>
  <message id="Failure.Library.NotALibrary">
    <source></source>
    <translation>“%1” is not a Mosaro library. Choose a folder whose name ends in “.mrlibrary”.</translation>
  </message>
  <message id="Failure.Library.NotReadable">
    <source></source>
    <translation>“%1” may not be read. Ask for permission, or choose another library.</translation>
  </message>
  <message id="Failure.Library.NotRemembered">
    <source></source>
    <translation>“%1” could not be noted as the library to open next time. Check that your preferences may be written.</translation>
  </message>
  <message id="Failure.Library.StateEmpty">
    <source></source>
    <translation>The state record “%1” is empty. Restore it from a backup, or remove it to start with the defaults.</translation>
  </message>
  <message id="Failure.Library.StateUnreadable">
    <source></source>
    <translation>The library's state record cannot be read. Restore it from a backup, or remove it to start with the defaults. %1</translation>
  </message>
  <message id="Failure.Library.StoreGone">
    <source></source>
    <translation>The data file of “%1” is gone or empty, while its items are still there. Restore the file “Mosaro” in it from a backup; nothing was changed.</translation>
  </message>
  <message id="Failure.No.Display">
    <source></source>
    <translation>there is no display to show a window on; start Mosaro in a desktop session, or use --snapshot FILE.png</translation>
  </message>
  <message id="Failure.Option">
    <source></source>
    <translation>%1 See: mosaro --help</translation>
  </message>
  <message id="Failure.PostScript.NoPage">
    <source></source>
    <translation>The file holds PostScript that draws no page, as fonts and procedures for printers do. Import a document that draws one.</translation>
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
  <message id="Failure.Snapshot.Save">
    <source></source>
    <translation>The picture could not be saved as %1. Check that the folder exists and may be written to.</translation>
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
  <message id="Failure.Tag.Gone">
    <source></source>
    <translation>The tag is no longer in the library.</translation>
  </message>
  <message id="File.Close.Window">
    <source></source>
    <translation>&amp;Close Window</translation>
  </message>
  <message id="File.Export">
    <source></source>
    <translation>&amp;Export…</translation>
  </message>
  <message id="File.Import">
    <source></source>
    <translation>&amp;Import…</translation>
  </message>
  <message id="File.New.Collection">
    <source></source>
    <translation>&amp;New Collection</translation>
  </message>
  <message id="File.New.Folder">
    <source></source>
    <translation>New &amp;Folder</translation>
  </message>
  <message id="File.New.SmartCollection">
    <source></source>
    <translation>New &amp;Smart Collection…</translation>
  </message>
  <message id="File.New.Tag">
    <source></source>
    <translation>New &amp;Tag</translation>
  </message>
  <message id="File.Switch.To.Library">
    <source></source>
    <translation>Switch to &amp;Library…</translation>
  </message>
  <message id="Guide.Subtitle1">
    <source></source>
    <translation>One quiet place for every picture that inspires your work: screens, icons, photos, sketches.</translation>
  </message>
  <message id="Guide.Subtitle2">
    <source></source>
    <translation>Drop files or folders on a collection, or choose Import. JPEG, PNG, GIF, TIFF, BMP and TGA are read as they are.</translation>
  </message>
  <message id="Guide.Subtitle3">
    <source></source>
    <translation>Make collections for projects and moods, and put them into folders. One picture lives in the collection you gave it.</translation>
  </message>
  <message id="Guide.Subtitle4">
    <source></source>
    <translation>Phone, tablet, wallpaper, icon: Mosaro tells from a picture what it is for and lists it there.</translation>
  </message>
  <message id="Guide.Subtitle5">
    <source></source>
    <translation>Drag the slider to zoom the grid. Sort it by title, size, rating or date; every collection remembers how.</translation>
  </message>
  <message id="Guide.Subtitle6">
    <source></source>
    <translation>Background, primary, secondary and detail: the colors of every picture are found while it comes in.</translation>
  </message>
  <message id="Guide.Subtitle7">
    <source></source>
    <translation>What you import is copied into the library. The files on your disk stay where they are, as they are.</translation>
  </message>
  <message id="Guide.Title1">
    <source></source>
    <translation>Welcome to Mosaro</translation>
  </message>
  <message id="Guide.Title2">
    <source></source>
    <translation>Bring your pictures in</translation>
  </message>
  <message id="Guide.Title3">
    <source></source>
    <translation>Collect as you think</translation>
  </message>
  <message id="Guide.Title4">
    <source></source>
    <translation>Sorted by kind, by itself</translation>
  </message>
  <message id="Guide.Title5">
    <source></source>
    <translation>See all, or look closely</translation>
  </message>
  <message id="Guide.Title6">
    <source></source>
    <translation>Four colors tell a picture</translation>
  </message>
  <message id="Guide.Title7">
    <source></source>
    <translation>Your files stay yours</translation>
  </message>
  <message id="Guide.Title8">
    <source></source>
    <translation>Your library is ready</translation>
  </message>
  <message id="Help.Feedback">
    <source></source>
    <translation>Send &amp;Feedback…</translation>
  </message>
  <message id="Help.Mosaro">
    <source></source>
    <translation>Mosaro &amp;Help</translation>
  </message>
  <message id="Help.Option.Chooser">
    <source></source>
    <translation>Ask for the library at start, as holding Alt does.</translation>
  </message>
  <message id="Help.Option.Files">
    <source></source>
    <translation>Files to import with --import.</translation>
  </message>
  <message id="Help.Option.Help">
    <source></source>
    <translation>Show this help.</translation>
  </message>
  <message id="Help.Option.Import">
    <source></source>
    <translation>With --snapshot: import the files that follow first.</translation>
  </message>
  <message id="Help.Option.Library">
    <source></source>
    <translation>Open this library package.</translation>
  </message>
  <message id="Help.Option.Snapshot">
    <source></source>
    <translation>Run unattended: save a picture of the main window in this file, then quit.</translation>
  </message>
  <message id="Help.Option.Version">
    <source></source>
    <translation>Show the version.</translation>
  </message>
  <message id="Help.ReleaseNotes">
    <source></source>
    <translation>&amp;Release Notes</translation>
  </message>
  <message id="Help.Twitter">
    <source></source>
    <translation>Follow &amp;Mosaro</translation>
  </message>
  <message id="Help.WebSite">
    <source></source>
    <translation>Mosaro &amp;Web Site</translation>
  </message>
  <message id="Hint.Color.Item">
    <source></source>
    <translation>In %1 item</translation>
  </message>
  <message id="Hint.Color.Items">
    <source></source>
    <translation>In %1 items</translation>
  </message>
  <message id="Hint.Color.Liked">
    <source></source>
    <translation>Liked</translation>
  </message>
  <message id="Hint.Ctl.Changed">
    <source></source>
    <translation>Items changed: %1</translation>
  </message>
  <message id="Hint.Ctl.Collection">
    <source></source>
    <translation>Make, rename or delete collections and folders; COLLECTION is an ID or a title</translation>
  </message>
  <message id="Hint.Ctl.Collection.Deleted">
    <source></source>
    <translation>Collections deleted: %1, items deleted: %2</translation>
  </message>
  <message id="Hint.Ctl.Collection.Folder">
    <source></source>
    <translation>With add: a folder</translation>
  </message>
  <message id="Hint.Ctl.Collection.In">
    <source></source>
    <translation>With add: the folder that it goes into</translation>
  </message>
  <message id="Hint.Ctl.Collections">
    <source></source>
    <translation>List collections: ID, type, number of items, title</translation>
  </message>
  <message id="Hint.Ctl.Colors">
    <source></source>
    <translation>List colours: the colour and its role, 0 to 3</translation>
  </message>
  <message id="Hint.Ctl.Commands">
    <source></source>
    <translation>Commands:</translation>
  </message>
  <message id="Hint.Ctl.Create">
    <source></source>
    <translation>Make an empty library</translation>
  </message>
  <message id="Hint.Ctl.Created">
    <source></source>
    <translation>Made the library %1</translation>
  </message>
  <message id="Hint.Ctl.ExitStatus">
    <source></source>
    <translation>Exit status: 0 all well, 1 the command failed, 2 wrong usage, 3 some items failed.</translation>
  </message>
  <message id="Hint.Ctl.Help">
    <source></source>
    <translation>Tell what the command takes</translation>
  </message>
  <message id="Hint.Ctl.Import">
    <source></source>
    <translation>Bring files, and the files of folders, into a collection</translation>
  </message>
  <message id="Hint.Ctl.Import.Collection">
    <source></source>
    <translation>The collection, made when there is none; “Untitled Collection” without this</translation>
  </message>
  <message id="Hint.Ctl.Import.Kind">
    <source></source>
    <translation>The kind of all the files; 4, 7 and 15 are copied in any case</translation>
  </message>
  <message id="Hint.Ctl.Import.Reference">
    <source></source>
    <translation>Leave the files where they are</translation>
  </message>
  <message id="Hint.Ctl.Imported">
    <source></source>
    <translation>Files imported into “%2”: %1</translation>
  </message>
  <message id="Hint.Ctl.Json">
    <source></source>
    <translation>Print JSON</translation>
  </message>
  <message id="Hint.Ctl.Label">
    <source></source>
    <translation>Give items a colour label: 0 to 7 or its name</translation>
  </message>
  <message id="Hint.Ctl.Library">
    <source></source>
    <translation>The library; without it the one the application opened last, else the default one</translation>
  </message>
  <message id="Hint.Ctl.List">
    <source></source>
    <translation>List items</translation>
  </message>
  <message id="Hint.Ctl.List.Collection">
    <source></source>
    <translation>Only items of this collection</translation>
  </message>
  <message id="Hint.Ctl.List.Color">
    <source></source>
    <translation>Only items with this color: six hexadecimal digits, or a colorID</translation>
  </message>
  <message id="Hint.Ctl.List.Descending">
    <source></source>
    <translation>Largest, latest or last first</translation>
  </message>
  <message id="Hint.Ctl.List.Kind">
    <source></source>
    <translation>Only items of this kind</translation>
  </message>
  <message id="Hint.Ctl.List.Recent">
    <source></source>
    <translation>Only items imported lately</translation>
  </message>
  <message id="Hint.Ctl.List.Smart">
    <source></source>
    <translation>Only items that this smart collection finds</translation>
  </message>
  <message id="Hint.Ctl.List.Sort">
    <source></source>
    <translation>title, size, rating, width, height, created, modified, imported (the default) or opened</translation>
  </message>
  <message id="Hint.Ctl.List.Tag">
    <source></source>
    <translation>Only items with this tag</translation>
  </message>
  <message id="Hint.Ctl.Move">
    <source></source>
    <translation>Make a collection the owner of items</translation>
  </message>
  <message id="Hint.Ctl.Move.To">
    <source></source>
    <translation>The collection: its ID or title</translation>
  </message>
  <message id="Hint.Ctl.Options">
    <source></source>
    <translation>Options:</translation>
  </message>
  <message id="Hint.Ctl.Rate">
    <source></source>
    <translation>Give items 0 to 5 stars</translation>
  </message>
  <message id="Hint.Ctl.Rules.Boolean">
    <source></source>
    <translation>0 no, 1 yes</translation>
  </message>
  <message id="Hint.Ctl.Rules.Date">
    <source></source>
    <translation>YYYY-MM-DD; the end of a range is %1</translation>
  </message>
  <message id="Hint.Ctl.Rules.Form">
    <source></source>
    <translation>Rules are a JSON array of 1 to %4 objects, each with %1, %2 where there is a choice, and %3:</translation>
  </message>
  <message id="Hint.Ctl.Rules.Idle">
    <source></source>
    <translation>Rule %1 is incomplete or of an unknown kind: it is stored and adds nothing</translation>
  </message>
  <message id="Hint.Ctl.Rules.Inclusive">
    <source></source>
    <translation>“is greater than” and “is less than” include the value.</translation>
  </message>
  <message id="Hint.Ctl.Rules.Label">
    <source></source>
    <translation>0 none, 1 red, 2 orange, 3 yellow, 4 green, 5 blue, 6 purple, 7 gray</translation>
  </message>
  <message id="Hint.Ctl.Rules.Number">
    <source></source>
    <translation>whole number</translation>
  </message>
  <message id="Hint.Ctl.Rules.Rating">
    <source></source>
    <translation>0 to 5</translation>
  </message>
  <message id="Hint.Ctl.Rules.Size">
    <source></source>
    <translation>whole number, times %1: 1000 KB, 1000000 MB, 1000000000 GB</translation>
  </message>
  <message id="Hint.Ctl.Rules.Tag">
    <source></source>
    <translation>title or ID of a tag</translation>
  </message>
  <message id="Hint.Ctl.Rules.Text">
    <source></source>
    <translation>text</translation>
  </message>
  <message id="Hint.Ctl.Search">
    <source></source>
    <translation>Find items by a part of a text, latest first</translation>
  </message>
  <message id="Hint.Ctl.Search.In">
    <source></source>
    <translation>title (the default), copyright, notes or url</translation>
  </message>
  <message id="Hint.Ctl.Show">
    <source></source>
    <translation>Show one item in full</translation>
  </message>
  <message id="Hint.Ctl.Smart">
    <source></source>
    <translation>Make a smart collection</translation>
  </message>
  <message id="Hint.Ctl.Smart.All">
    <source></source>
    <translation>Items must fulfil all rules</translation>
  </message>
  <message id="Hint.Ctl.Smart.Any">
    <source></source>
    <translation>Items must fulfil any of the rules (the default)</translation>
  </message>
  <message id="Hint.Ctl.Smart.Rules">
    <source></source>
    <translation>Its rules; the form is told below</translation>
  </message>
  <message id="Hint.Ctl.Tag">
    <source></source>
    <translation>Puts a tag on items or takes it off; a missing tag is made</translation>
  </message>
  <message id="Hint.Ctl.Tag.Collection">
    <source></source>
    <translation>All items of this collection, in place of IDs</translation>
  </message>
  <message id="Hint.Ctl.Tags">
    <source></source>
    <translation>List tags</translation>
  </message>
  <message id="Hint.Ctl.Usage">
    <source></source>
    <translation>Usage: %1</translation>
  </message>
  <message id="Hint.Ctl.Verify">
    <source></source>
    <translation>Check the data file, and compare the records with the files</translation>
  </message>
  <message id="Hint.Ctl.Verify.Clean">
    <source></source>
    <translation>Every record has its files, and every item folder its record.</translation>
  </message>
  <message id="Hint.Ctl.Verify.Folder">
    <source></source>
    <translation>No record names the folder %1. Remove it with --repair.</translation>
  </message>
  <message id="Hint.Ctl.Verify.Original">
    <source></source>
    <translation>The file of the item %1 is gone. Bring it back to its place, or import it again.</translation>
  </message>
  <message id="Hint.Ctl.Verify.Preview">
    <source></source>
    <translation>The preview of the item %1 is gone. Import its file again.</translation>
  </message>
  <message id="Hint.Ctl.Verify.Removed">
    <source></source>
    <translation>Removed the folder %1, which no record named.</translation>
  </message>
  <message id="Hint.Ctl.Verify.Repair">
    <source></source>
    <translation>Remove item folders that no record names</translation>
  </message>
  <message id="Hint.Ctl.Version">
    <source></source>
    <translation>Print the version</translation>
  </message>
  <message id="Hint.Drop.Images">
    <source></source>
    <translation>They are brought into this collection. You can also choose them from your disk.</translation>
  </message>
  <message id="Hint.Empty.Folder">
    <source></source>
    <translation>Import makes a collection in it and brings the pictures into that.</translation>
  </message>
  <message id="Hint.No.Colors">
    <source></source>
    <translation>Import pictures, or show more colors in the view options.</translation>
  </message>
  <message id="Inspector.Tag.Title">
    <source></source>
    <translation>Tags</translation>
  </message>
  <message id="Label.All.Files">
    <source></source>
    <translation>All files</translation>
  </message>
  <message id="Label.Color.Blue">
    <source></source>
    <translation>Blue</translation>
  </message>
  <message id="Label.Color.Custom.Color">
    <source></source>
    <translation>Custom Color…</translation>
  </message>
  <message id="Label.Color.Gray">
    <source></source>
    <translation>Gray</translation>
  </message>
  <message id="Label.Color.Green">
    <source></source>
    <translation>Green</translation>
  </message>
  <message id="Label.Color.Orange">
    <source></source>
    <translation>Orange</translation>
  </message>
  <message id="Label.Color.Purple">
    <source></source>
    <translation>Purple</translation>
  </message>
  <message id="Label.Color.Red">
    <source></source>
    <translation>Red</translation>
  </message>
  <message id="Label.Color.Yellow">
    <source></source>
    <translation>Yellow</translation>
  </message>
  <message id="Label.Failed.File">
    <source></source>
    <translation>1 file</translation>
  </message>
  <message id="Label.Failed.Files">
    <source></source>
    <translation>%1 files</translation>
  </message>
  <message id="Label.Height">
    <source></source>
    <translation>Height: %1</translation>
  </message>
  <message id="Label.Import.Count">
    <source></source>
    <translation>%1 of %2</translation>
  </message>
  <message id="Label.Label">
    <source></source>
    <translation>Label</translation>
  </message>
  <message id="Label.Label.Named">
    <source></source>
    <translation>%1: %2</translation>
  </message>
  <message id="Label.New.Tag">
    <source></source>
    <translation>New tag</translation>
  </message>
  <message id="Label.No.Color">
    <source></source>
    <translation>No Color</translation>
  </message>
  <message id="Label.Percent">
    <source></source>
    <translation>%1 %</translation>
  </message>
  <message id="Label.Save.As">
    <source></source>
    <translation>Save as:</translation>
  </message>
  <message id="Label.Search.Results">
    <source></source>
    <translation>Search results</translation>
  </message>
  <message id="Label.Smart.Collection.Title">
    <source></source>
    <translation>Title:</translation>
  </message>
  <message id="Label.Smart.Match">
    <source></source>
    <translation>1 item matches</translation>
  </message>
  <message id="Label.Smart.Matches">
    <source></source>
    <translation>%1 items match</translation>
  </message>
  <message id="Label.Supported.Files">
    <source></source>
    <translation>Pictures and documents</translation>
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
  <message id="Lib.Focus.Colors">
    <source></source>
    <translation>Focus Colors</translation>
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
  <message id="Lib.Other.Colors">
    <source></source>
    <translation>Other Colors</translation>
  </message>
  <message id="Lib.PDF">
    <source></source>
    <translation>PDF</translation>
  </message>
  <message id="Lib.Phone">
    <source></source>
    <translation>Phone</translation>
  </message>
  <message id="Lib.Primary.Colors">
    <source></source>
    <translation>Primary Colors</translation>
  </message>
  <message id="Lib.Recent">
    <source></source>
    <translation>Recent</translation>
  </message>
  <message id="Lib.Samples">
    <source></source>
    <translation>Samples</translation>
  </message>
  <message id="Lib.Screen">
    <source></source>
    <translation>Screen</translation>
  </message>
  <message id="Lib.Secondary.Colors">
    <source></source>
    <translation>Secondary Colors</translation>
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
  <message id="MRL.Message">
    <source></source>
    <translation>A library holds your pictures and designs, their previews and everything you know about them. Choose one you have, or create a new one.</translation>
  </message>
  <message id="MRL.Title">
    <source></source>
    <translation>Welcome to Mosaro</translation>
  </message>
  <message id="Menu.About">
    <source></source>
    <translation>&amp;About Mosaro</translation>
  </message>
  <message id="Menu.Copy">
    <source></source>
    <translation>&amp;Copy</translation>
  </message>
  <message id="Menu.Cut">
    <source></source>
    <translation>Cu&amp;t</translation>
  </message>
  <message id="Menu.Edit">
    <source></source>
    <translation>&amp;Edit</translation>
  </message>
  <message id="Menu.File">
    <source></source>
    <translation>&amp;File</translation>
  </message>
  <message id="Menu.Help">
    <source></source>
    <translation>&amp;Help</translation>
  </message>
  <message id="Menu.Mosaro">
    <source></source>
    <translation>&amp;Mosaro</translation>
  </message>
  <message id="Menu.Paste">
    <source></source>
    <translation>&amp;Paste</translation>
  </message>
  <message id="Menu.Quit">
    <source></source>
    <translation>&amp;Quit Mosaro</translation>
  </message>
  <message id="Menu.Redo">
    <source></source>
    <translation>&amp;Redo</translation>
  </message>
  <message id="Menu.Select.All">
    <source></source>
    <translation>Select &amp;All</translation>
  </message>
  <message id="Menu.Select.None">
    <source></source>
    <translation>Select &amp;None</translation>
  </message>
  <message id="Menu.Undo">
    <source></source>
    <translation>&amp;Undo</translation>
  </message>
  <message id="Menu.View">
    <source></source>
    <translation>&amp;View</translation>
  </message>
  <message id="Menu.Window">
    <source></source>
    <translation>&amp;Window</translation>
  </message>
  <message id="Message.Choose.Accessible.Folders">
    <source></source>
    <translation>This library keeps its pictures where they are. Choose the folder that holds them, or one above it, so that Mosaro can read it later.</translation>
  </message>
  <message id="Message.Choose.Folder">
    <source></source>
    <translation>Choose Folder</translation>
  </message>
  <message id="Message.Choose.Library">
    <source></source>
    <translation>Choose a library</translation>
  </message>
  <message id="Message.Delete.Collection">
    <source></source>
    <translation>Delete %1 collection and the items in it? Their copies in the library are removed from the disk. This cannot be undone.</translation>
  </message>
  <message id="Message.Delete.Collections">
    <source></source>
    <translation>Delete %1 collections and the items in them? Their copies in the library are removed from the disk. This cannot be undone.</translation>
  </message>
  <message id="Message.Delete.Tag">
    <source></source>
    <translation>Delete %1 tag? It is taken off all items; the items stay in the library.</translation>
  </message>
  <message id="Message.Delete.Tags">
    <source></source>
    <translation>Delete %1 tags? They are taken off all items; the items stay in the library.</translation>
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
  <message id="Message.Move.Completed">
    <source></source>
    <translation>Items moved</translation>
  </message>
  <message id="Message.Move.Completed.Item">
    <source></source>
    <translation>%1 item moved</translation>
  </message>
  <message id="Message.Move.Completed.Items">
    <source></source>
    <translation>%1 items moved</translation>
  </message>
  <message id="Message.No.Colors">
    <source></source>
    <translation>No Colors</translation>
  </message>
  <message id="Message.No.Tags">
    <source></source>
    <translation>No tags yet. Make one with File &gt; New Tag.</translation>
  </message>
  <message id="Message.Permmision">
    <source></source>
    <translation>Check that the disk has room and that you may write to this folder.</translation>
  </message>
  <message id="Message.Remove.Completed">
    <source></source>
    <translation>Files removed</translation>
  </message>
  <message id="Message.Remove.Completed.Collection">
    <source></source>
    <translation>%1 collection removed</translation>
  </message>
  <message id="Message.Remove.Completed.Collections">
    <source></source>
    <translation>%1 collections removed</translation>
  </message>
  <message id="Message.Remove.Completed.Item">
    <source></source>
    <translation>%1 item removed</translation>
  </message>
  <message id="Message.Remove.Completed.Items">
    <source></source>
    <translation>%1 items removed</translation>
  </message>
  <message id="Message.Snapshot.Count">
    <source></source>
    <translation>%1 of %2 imported</translation>
  </message>
  <message id="Message.Snapshot.Failed">
    <source></source>
    <translation>failed    %1: %2</translation>
  </message>
  <message id="Message.Snapshot.Imported">
    <source></source>
    <translation>imported  %1 (%2 x %3)</translation>
  </message>
  <message id="Message.Snapshot.Saved">
    <source></source>
    <translation>saved     %1</translation>
  </message>
  <message id="Smart.Begins.With">
    <source></source>
    <translation>begins with</translation>
  </message>
  <message id="Smart.Contains">
    <source></source>
    <translation>contains</translation>
  </message>
  <message id="Smart.Ends.With">
    <source></source>
    <translation>ends with</translation>
  </message>
  <message id="Smart.Equals">
    <source></source>
    <translation>equals</translation>
  </message>
  <message id="Smart.Image.Alpha.Channel">
    <source></source>
    <translation>Alpha Channel</translation>
  </message>
  <message id="Smart.Image.Capture.URL">
    <source></source>
    <translation>Web Address</translation>
  </message>
  <message id="Smart.Image.Color.Model">
    <source></source>
    <translation>Color Model</translation>
  </message>
  <message id="Smart.Image.ColorSync.Profile">
    <source></source>
    <translation>Color Profile</translation>
  </message>
  <message id="Smart.Image.Creation.Date">
    <source></source>
    <translation>Date Created</translation>
  </message>
  <message id="Smart.Image.DPI">
    <source></source>
    <translation>Resolution (DPI)</translation>
  </message>
  <message id="Smart.Image.File.Size">
    <source></source>
    <translation>File Size</translation>
  </message>
  <message id="Smart.Image.Height">
    <source></source>
    <translation>Height</translation>
  </message>
  <message id="Smart.Image.Imported.Date">
    <source></source>
    <translation>Date Imported</translation>
  </message>
  <message id="Smart.Image.Label">
    <source></source>
    <translation>Label</translation>
  </message>
  <message id="Smart.Image.Modification.Date">
    <source></source>
    <translation>Date Modified</translation>
  </message>
  <message id="Smart.Image.Ratings">
    <source></source>
    <translation>Rating</translation>
  </message>
  <message id="Smart.Image.Tags">
    <source></source>
    <translation>Tag</translation>
  </message>
  <message id="Smart.Image.Title">
    <source></source>
    <translation>Title</translation>
  </message>
  <message id="Smart.Image.Type">
    <source></source>
    <translation>File Type</translation>
  </message>
  <message id="Smart.Image.Width">
    <source></source>
    <translation>Width</translation>
  </message>
  <message id="Smart.Is">
    <source></source>
    <translation>is</translation>
  </message>
  <message id="Smart.Is.After">
    <source></source>
    <translation>is after</translation>
  </message>
  <message id="Smart.Is.Before">
    <source></source>
    <translation>is before</translation>
  </message>
  <message id="Smart.Is.Greater.Than">
    <source></source>
    <translation>is greater than</translation>
  </message>
  <message id="Smart.Is.In.The.Range">
    <source></source>
    <translation>is in the range</translation>
  </message>
  <message id="Smart.Is.Less.Than">
    <source></source>
    <translation>is less than</translation>
  </message>
  <message id="Smart.Is.Not">
    <source></source>
    <translation>is not</translation>
  </message>
  <message id="Smart.Matches">
    <source></source>
    <translation>matches</translation>
  </message>
  <message id="Smart.No.Tags">
    <source></source>
    <translation>No tags yet</translation>
  </message>
  <message id="Smart.Range.To">
    <source></source>
    <translation>to</translation>
  </message>
  <message id="Tooltip.Add.Tag">
    <source></source>
    <translation>Make the tag and put it on the selected items</translation>
  </message>
  <message id="Tooltip.Choose.Library">
    <source></source>
    <translation>Open a library that is already on this computer</translation>
  </message>
  <message id="Tooltip.Close.Group">
    <source></source>
    <translation>Close this group (-)</translation>
  </message>
  <message id="Tooltip.Close.Tags">
    <source></source>
    <translation>Close the tag panel</translation>
  </message>
  <message id="Tooltip.Colors">
    <source></source>
    <translation>Colors</translation>
  </message>
  <message id="Tooltip.Copy.Failed.Files">
    <source></source>
    <translation>Copy all paths and reasons</translation>
  </message>
  <message id="Tooltip.Create.Library">
    <source></source>
    <translation>Make a new, empty library in a place you choose</translation>
  </message>
  <message id="Tooltip.Divider">
    <source></source>
    <translation>Drag to change the width of the sidebar</translation>
  </message>
  <message id="Tooltip.Focus.Colors">
    <source></source>
    <translation>Show the color that takes the most room in each picture</translation>
  </message>
  <message id="Tooltip.Hide.Color.View.Options">
    <source></source>
    <translation>Hide the view options</translation>
  </message>
  <message id="Tooltip.Import">
    <source></source>
    <translation>Choose files to import</translation>
  </message>
  <message id="Tooltip.Like.Colors.Only">
    <source></source>
    <translation>Show only colors that are marked as liked</translation>
  </message>
  <message id="Tooltip.New.Tag">
    <source></source>
    <translation>Make a tag and put it on the selected items</translation>
  </message>
  <message id="Tooltip.Open.Group">
    <source></source>
    <translation>Open this group (+)</translation>
  </message>
  <message id="Tooltip.Other.Colors">
    <source></source>
    <translation>Show the fourth color of each picture</translation>
  </message>
  <message id="Tooltip.Primary.Colors">
    <source></source>
    <translation>Show the second color of each picture</translation>
  </message>
  <message id="Tooltip.Quit">
    <source></source>
    <translation>Quit Mosaro</translation>
  </message>
  <message id="Tooltip.Rating">
    <source></source>
    <translation>Rating</translation>
  </message>
  <message id="Tooltip.Reveal.File">
    <source></source>
    <translation>Show the file in its folder</translation>
  </message>
  <message id="Tooltip.Search">
    <source></source>
    <translation>Search: type and press Return</translation>
  </message>
  <message id="Tooltip.Search.Choices">
    <source></source>
    <translation>What to search, and where</translation>
  </message>
  <message id="Tooltip.Search.Clear">
    <source></source>
    <translation>Empty the search field</translation>
  </message>
  <message id="Tooltip.Secondary.Colors">
    <source></source>
    <translation>Show the third color of each picture</translation>
  </message>
  <message id="Tooltip.Show.Color.View.Options">
    <source></source>
    <translation>Show the view options</translation>
  </message>
  <message id="Tooltip.Sidebar.Action">
    <source></source>
    <translation>Actions for the selected collection</translation>
  </message>
  <message id="Tooltip.Smart.Add">
    <source></source>
    <translation>Add a rule</translation>
  </message>
  <message id="Tooltip.Smart.Condition">
    <source></source>
    <translation>How it is compared</translation>
  </message>
  <message id="Tooltip.Smart.Delete">
    <source></source>
    <translation>Remove this rule</translation>
  </message>
  <message id="Tooltip.Smart.Match">
    <source></source>
    <translation>Whether one rule is enough, or all must hold</translation>
  </message>
  <message id="Tooltip.Smart.Title">
    <source></source>
    <translation>Title of the smart collection</translation>
  </message>
  <message id="Tooltip.Smart.Type">
    <source></source>
    <translation>What the rule looks at</translation>
  </message>
  <message id="Tooltip.Smart.Unit">
    <source></source>
    <translation>Unit of size</translation>
  </message>
  <message id="Tooltip.Smart.Value">
    <source></source>
    <translation>What it is compared with</translation>
  </message>
  <message id="Tooltip.Stop.Download">
    <source></source>
    <translation>Stop the download of the image</translation>
  </message>
  <message id="Tooltip.Stop.Import">
    <source></source>
    <translation>Stop after the file that is being imported</translation>
  </message>
  <message id="Tooltip.Stop.Run">
    <source></source>
    <translation>Stop here; what is done stays done</translation>
  </message>
  <message id="Tooltip.Tab.Collections">
    <source></source>
    <translation>Collections of the library</translation>
  </message>
  <message id="Tooltip.Tab.Colors">
    <source></source>
    <translation>Colors of the library</translation>
  </message>
  <message id="Tooltip.Tab.Tags">
    <source></source>
    <translation>Tags of the library</translation>
  </message>
  <message id="Tooltip.Tags.Of.Selection">
    <source></source>
    <translation>Click a box to put the tag on the selected items or take it off</translation>
  </message>
  <message id="Tooltip.Zoom">
    <source></source>
    <translation>Size of the pictures</translation>
  </message>
  <message id="Tooltip.Zoom.Large">
    <source></source>
    <translation>Largest pictures</translation>
  </message>
  <message id="Tooltip.Zoom.Small">
    <source></source>
    <translation>Smallest pictures</translation>
  </message>
  <message id="View.Actual.Size">
    <source></source>
    <translation>&amp;Actual Size</translation>
  </message>
  <message id="View.BrowserView">
    <source></source>
    <translation>&amp;Browser</translation>
  </message>
  <message id="View.Collections">
    <source></source>
    <translation>&amp;Collections</translation>
  </message>
  <message id="View.Colors">
    <source></source>
    <translation>Colo&amp;rs</translation>
  </message>
  <message id="View.Enter.Full.Screen">
    <source></source>
    <translation>Enter F&amp;ull Screen</translation>
  </message>
  <message id="View.Exit.Full.Screen">
    <source></source>
    <translation>Exit F&amp;ull Screen</translation>
  </message>
  <message id="View.Inspector">
    <source></source>
    <translation>Ins&amp;pector</translation>
  </message>
  <message id="View.Show.Filter.Inspector">
    <source></source>
    <translation>&amp;Filters</translation>
  </message>
  <message id="View.Show.General.Inspector">
    <source></source>
    <translation>&amp;General</translation>
  </message>
  <message id="View.Show.Inspector">
    <source></source>
    <translation>Show &amp;Inspector</translation>
  </message>
  <message id="View.Show.Tag.Inspector">
    <source></source>
    <translation>&amp;Tags</translation>
  </message>
  <message id="View.Tags">
    <source></source>
    <translation>&amp;Tags</translation>
  </message>
  <message id="View.Zoom.In">
    <source></source>
    <translation>Zoom &amp;In</translation>
  </message>
  <message id="View.Zoom.Out">
    <source></source>
    <translation>Zoom &amp;Out</translation>
  </message>
  <message id="View.Zoom.To.Fit">
    <source></source>
    <translation>Zoom to &amp;Fit</translation>
  </message>
  <message id="Window.Import.Errors">
    <source></source>
    <translation>Import</translation>
  </message>
  <message id="Window.Minimize">
    <source></source>
    <translation>Mi&amp;nimize</translation>
  </message>
  <message id="Window.Mosaro">
    <source></source>
    <translation>&amp;Mosaro</translation>
  </message>
  <message id="Window.Mosaro.Mini">
    <source></source>
    <translation>Mosaro M&amp;ini</translation>
  </message>
</context>
</TS>
