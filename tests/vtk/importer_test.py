"""Imports a scene in Python, as a notebook does: importer_test.py SCENE"""
import sys
import unittest

from vtkmodules.vtkCommonCore import vtkCommand
from vtkmodules.vtkCommonDataModel import vtkCompositeDataSet
from vtkmodules.vtkRenderingCore import vtkPropCollection, vtkRenderer, vtkRenderWindow
import vtkmodules.vtkRenderingOpenGL2

from vemoscene.vtk import vtkVemoSceneImporter

scene = sys.argv.pop()


class ImporterTest(unittest.TestCase):
    def setUp(self):
        self.renderer = vtkRenderer()
        self.window = vtkRenderWindow()
        self.window.AddRenderer(self.renderer)
        self.importer = vtkVemoSceneImporter()
        self.importer.SetRenderWindow(self.window)
        self.importer.SetFileName(scene)

    def test_fills_a_renderer_with_named_actors_and_arrays(self):
        self.importer.Update()
        self.assertTrue(self.importer.GetSucceeded(), self.importer.GetErrorText())
        item = self.importer.FindItem("Wing/skin")
        self.assertTrue(self.importer.GetItemPath(item).endswith("/Wing/skin/SurfaceDrawable"))
        props = vtkPropCollection()
        self.importer.GetItemProps(item, props)
        actor = props.GetItemAsObject(0)
        self.assertEqual(self.importer.FindItemOfProp(actor), item)
        self.assertEqual(actor.GetPropertyKeys().Get(vtkCompositeDataSet.NAME()), "skin")
        mesh = actor.GetMapper().GetInput()
        self.assertTrue(mesh.GetPointData().HasArray(actor.GetMapper().GetArrayName()))
        # Actors do not need the importer.
        count = self.renderer.GetViewProps().GetNumberOfItems()
        self.importer = None
        self.assertEqual(self.renderer.GetViewProps().GetNumberOfItems(), count)

    def test_reports_progress_and_stops(self):
        shares = []

        def note(importer, event):
            shares.append(importer.GetProgress())
            if importer.GetProgress() > 0.5:
                importer.AbortExecuteOn()

        self.importer.AddObserver(vtkCommand.ProgressEvent, note)
        self.importer.Update()
        self.assertFalse(self.importer.GetSucceeded())
        self.assertEqual(shares, sorted(shares))
        self.assertGreater(len(shares), 2)
        self.assertEqual(self.renderer.GetViewProps().GetNumberOfItems(), 0)

    def test_tells_failures(self):
        errors = []
        self.importer.AddObserver(vtkCommand.ErrorEvent, lambda importer, event: errors.append(event))
        self.importer.SetFileName(scene + ".nonsense")
        self.importer.Update()
        self.assertEqual(len(errors), 1)
        self.assertNotEqual(self.importer.GetErrorText(), "")


unittest.main()
